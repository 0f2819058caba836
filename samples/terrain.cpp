#include "terrain.h"

#include "light.h"
#include "noise.h"
#include "parallel.h"

namespace sample {
namespace {

constexpr float kTreeLine = 520.0f;

/// How far a point lies outside the lake, in metres; negative on the water.
float distanceFromLake(float x, float z) {
    const float along = (z - 600.0f) / 1150.0f, across = (x - 40.0f) / 430.0f;
    const float wobble = fractalNoise(x / 260.0f, z / 260.0f, 4, 91) - 0.47f;
    return (std::sqrt(along * along + across * across) - 1.0f) * 520.0f + wobble * 260.0f;
}

/// The share of ground under trees, 0..1: thick by the water, thinning out towards the tree line.
float forest(float x, float z, float ground) {
    const float patches = fractalNoise(x / 310.0f, z / 310.0f, 4, 57);
    const float cover = 1.25f - ground / kTreeLine + (patches - 0.47f) * 2.4f;
    return smoothstep(0.15f, 0.55f, cover) * smoothstep(1.5f, 5.0f, ground);
}

/// The height of the conifers above the ground: one cone of its own size in each cell of a loose grid.
float crowns(float x, float z, float density) {
    constexpr float kSpacing = 7.0f;
    const int cellX = int(std::floor(x / kSpacing)), cellZ = int(std::floor(z / kSpacing));
    float top = 0;
    for (int j = cellZ - 1; j <= cellZ + 1; ++j) {
        for (int i = cellX - 1; i <= cellX + 1; ++i) {
            if (hash(i, j, 11) > density) continue;
            const float dx = (float(i) + hash(i, j, 12)) * kSpacing - x;
            const float dz = (float(j) + hash(i, j, 13)) * kSpacing - z;
            const float size = 9.0f + 15.0f * hash(i, j, 14) * hash(i, j, 15) + 3.0f * hash(i, j, 16);
            const float away = std::sqrt(dx * dx + dz * dz) / (size * 0.2f);
            if (away < 1) top = std::max(top, size * (1.0f - away));
        }
    }
    return top;
}

}  // namespace

Terrain::Terrain(Vec3 towardsSun)
    : towardsSun_(towardsSun), ground_(std::size_t(kCells) * kCells), shade_(ground_.size()) {
    forEachIndex(kCells, [this](int row) {
        for (int column = 0; column < kCells; ++column)
            ground_[std::size_t(row) * kCells + std::size_t(column)] =
                ground((float(column) + 0.5f) * kCellSize - kDepth / 2, (float(row) + 0.5f) * kCellSize);
    });
    castShadows();
}

float Terrain::ground(float x, float z) {
    const float away = distanceFromLake(x, z);
    if (away < 0) return std::max(away * 0.2f, -12.0f);
    // A valley leads from the far shore to the snow peaks behind, so that the near slopes frame them.
    const float valley = std::abs(x - 150.0f - 0.06f * z + 350.0f * std::sin(z / 1700.0f));
    const float slopes = mix(0.16f, 1.0f, smoothstep(100.0f, 2300.0f + 0.05f * z, valley));
    const float peaks = smoothstep(5600.0f, 10500.0f, z);
    const float rise = smoothstep(-100.0f, 3800.0f, away);
    const float ridges = erodedNoise(x / 2900.0f + 3.3f, z / 2900.0f + 1.7f, 11, 5);
    const float hills = fractalNoise(x / 700.0f, z / 700.0f, 5, 33);
    return smoothstep(0.0f, 300.0f, away) * 120.0f * smoothstep(0.25f, 0.7f, hills) +
           rise * std::max(slopes, peaks) * (3050.0f * ridges + 150.0f * hills) +
           std::min(away, 40.0f) * 0.06f;
}

float Terrain::fromMap(const std::vector<float>& map, float x, float z) const {
    const float u = std::clamp((x + kDepth / 2) / kCellSize - 0.5f, 0.0f, float(kCells) - 1.01f);
    const float v = std::clamp(z / kCellSize - 0.5f, 0.0f, float(kCells) - 1.01f);
    const int i = int(u), j = int(v);
    const float* cell = map.data() + std::size_t(j) * kCells + std::size_t(i);
    return mix(mix(cell[0], cell[1], u - float(i)), mix(cell[kCells], cell[kCells + 1], u - float(i)),
               v - float(j));
}

/// The sun stands on the left. A column of cells is therefore shaded by the column on its left, whose shadow
/// line has sunk by then as far as the rays fall over one cell.
void Terrain::castShadows() {
    const float drop = kCellSize * towardsSun_.y / -towardsSun_.x;
    const float sideways = towardsSun_.z / -towardsSun_.x;
    for (int column = 0; column < kCells; ++column) {
        for (int row = 0; row < kCells; ++row) {
            const std::size_t cell = std::size_t(row) * kCells + std::size_t(column);
            shade_[cell] = ground_[cell];
            if (column == 0) continue;
            const float source = std::clamp(float(row) + sideways, 0.0f, float(kCells) - 1.01f);
            const int above = int(source);
            const float* left = shade_.data() + std::size_t(above) * kCells + std::size_t(column) - 1;
            shade_[cell] = std::max(shade_[cell], mix(left[0], left[kCells], source - float(above)) - drop);
        }
    }
}

float Terrain::height(float x, float z, float footprint) const {
    const float base = fromMap(ground_, x, z);
    if (base <= 0) return base;
    float detail = 0, size = 18.0f, weight = 5.0f * smoothstep(20.0f, 400.0f, base);
    for (std::uint32_t octave = 0; octave < 4 && size > footprint; ++octave, size *= 0.43f, weight *= 0.45f)
        detail += weight * (valueNoise(x / size, z / size, 70 + octave).value - 0.5f);
    float trees = 0;
    if (base < kTreeLine * 1.6f && footprint < 9.0f) {
        const float density = forest(x, z, base);
        if (density > 0.02f) trees = crowns(x, z, density);
    }
    return base + detail + trees;
}

float Terrain::ceiling(float x, float z) const {
    constexpr float kTallestTree = 27.0f, kRoughest = 5.0f;
    const float base = fromMap(ground_, x, z);
    return base <= 0 ? base : base + kTallestTree + kRoughest;
}

Vec3 Terrain::light(float x, float z, float height, float footprint) const {
    const float base = fromMap(ground_, x, z);
    const float step = std::max(footprint, 0.8f);
    const float dx = this->height(x + step, z, footprint) - height;
    const float dz = this->height(x, z + step, footprint) - height;
    const Vec3 normal = normalised({-dx, step, -dz});

    const float broad = kCellSize * 1.5f;
    const float steepness = std::hypot(fromMap(ground_, x + broad, z) - fromMap(ground_, x - broad, z),
                                       fromMap(ground_, x, z + broad) - fromMap(ground_, x, z - broad)) /
                            (2 * broad);
    const float grain = fractalNoise(x / 40.0f, z / 40.0f, 5, 21);
    const float strata = fractalNoise(x / 400.0f, height / 22.0f, 4, 22);

    Vec3 colour =
        mix(Vec3{0.155f, 0.135f, 0.12f}, Vec3{0.30f, 0.27f, 0.24f}, clamp01(0.55f * grain + 0.6f * strata));
    const float meadow =
        smoothstep(1.05f, 0.55f, steepness) * smoothstep(1150.0f, 700.0f, base + 420.0f * grain);
    colour = mix(colour, mix(Vec3{0.075f, 0.085f, 0.028f}, Vec3{0.15f, 0.12f, 0.045f}, grain), meadow);
    const float wooded = forest(x, z, base);
    const float treeTint = hash(int(std::floor(x / 7.0f)), int(std::floor(z / 7.0f)), 19);
    colour = mix(colour, mix(Vec3{0.016f, 0.026f, 0.014f}, Vec3{0.038f, 0.042f, 0.016f}, treeTint), wooded);
    const float snowLine =
        780.0f + 620.0f * (fractalNoise(x / 900.0f, z / 900.0f, 4, 41) - 0.5f) + 160.0f * (grain - 0.5f);
    const float snow = smoothstep(-60.0f, 160.0f, base - snowLine) *
                       smoothstep(1.65f, 0.85f, steepness + 0.5f * (grain - 0.5f));
    colour = mix(colour, {0.86f, 0.88f, 0.92f}, snow);
    const float beach = smoothstep(2.6f, 1.2f, base) * (0.4f + grain);
    colour = mix(colour, {0.23f, 0.2f, 0.165f}, clamp01(beach));

    const float sunlit = smoothstep(-12.0f, 25.0f, height - fromMap(shade_, x, z));
    const float facing = std::max(0.0f, dot(normal, towardsSun_));
    const float open =
        0.35f + 0.65f * clamp01(normal.y) * (1.0f - 0.55f * wooded * smoothstep(14.0f, 2.0f, height - base));
    return colour * (kSunlight * (facing * sunlit) + kSkylight * open);
}

}  // namespace sample
