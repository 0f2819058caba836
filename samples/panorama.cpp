#include "panorama.h"

#include "light.h"
#include "parallel.h"

namespace sample {
namespace {

constexpr int kSamples = 2;  // land is sampled this often along each axis of a pixel

/// One column of samples, filled from the bottom up while the ray walks away from the viewer.
class Column {
 public:
    explicit Column(int rows) : light_(std::size_t(rows)), covered_(std::size_t(rows)) {}

    void clear() { std::fill(covered_.begin(), covered_.end(), char(0)); }

    void walk(const Camera& camera, const Terrain& terrain, float across, bool mirrored) {
        const float eye = mirrored ? -camera.eye : camera.eye;
        const float scale = camera.focal() * kSamples, horizon = camera.horizon() * kSamples;
        const float pixel = 1.0f / camera.focal();
        const int rows = int(light_.size());
        int filled = rows;  // rows from here down are done
        float lowest = float(rows);
        bool onWater = true;
        for (float z = Terrain::kNear; z < Terrain::kDepth && filled > 0;
             z += std::max(0.35f, z * pixel * 0.9f)) {
            const float x = across * z;
            const float ceiling = terrain.ceiling(x, z);
            if (onWater) lowest = mirrored ? float(rows) : horizon + scale * eye / z;
            onWater = ceiling <= 0;
            if (onWater) continue;
            const auto rowOf = [&](float height) { return horizon - scale * (height - eye) / z; };
            if (rowOf(ceiling) >= float(filled)) {  // hidden, whatever grows there
                lowest = float(filled);
                continue;
            }
            const float height = terrain.height(x, z, z * pixel);
            const float row = rowOf(height);
            const int top = std::max(0, int(std::ceil(row - 0.5f)));
            const int bottom = std::min(filled, int(std::ceil(lowest - 0.5f)));
            lowest = row;
            if (top >= bottom) continue;
            const Vec3 direction = normalised({across, height / z, 1.0f});
            const Vec3 seen = throughAir(terrain.light(x, z, height, z * pixel), z, height, direction);
            for (int y = top; y < bottom; ++y) {
                light_[std::size_t(y)] = seen;
                covered_[std::size_t(y)] = 1;
            }
            filled = top;
        }
    }

    [[nodiscard]] bool covered(int y) const { return covered_[std::size_t(y)] != 0; }
    [[nodiscard]] Vec3 light(int y) const { return light_[std::size_t(y)]; }

 private:
    std::vector<Vec3> light_;
    std::vector<char> covered_;
};

}  // namespace

Panorama renderPanorama(const Camera& camera, const Terrain& terrain, bool mirrored) {
    const int rows =
        int(camera.horizon() + (mirrored ? 0.0f : camera.focal() * camera.eye / Terrain::kNear)) + 2;
    Panorama result{Picture(camera.width, rows),
                    std::vector<float>(std::size_t(camera.width) * std::size_t(rows))};
    forEachIndex(camera.width, [&](int x) {
        std::vector<Vec3> sum(static_cast<std::size_t>(rows));
        std::vector<int> hits(static_cast<std::size_t>(rows));
        Column column(rows * kSamples);
        for (int sampleX = 0; sampleX < kSamples; ++sampleX) {
            const float centre = float(x) + (float(sampleX) + 0.5f) / kSamples;
            column.clear();
            column.walk(camera, terrain, camera.ray(centre, 0).x, mirrored);
            for (int y = 0; y < rows * kSamples; ++y) {
                if (!column.covered(y)) continue;
                sum[std::size_t(y / kSamples)] = sum[std::size_t(y / kSamples)] + column.light(y);
                ++hits[std::size_t(y / kSamples)];
            }
        }
        constexpr int kAll = kSamples * kSamples;
        for (int y = 0; y < rows; ++y) {
            const int hit = hits[std::size_t(y)];
            Vec3 light = sum[std::size_t(y)] * (1.0f / float(std::max(hit, 1)));
            if (hit < kAll && float(y) + 0.5f < camera.horizon())
                light = mix(skyLight(normalised(camera.ray(float(x) + 0.5f, float(y) + 0.5f))), light,
                            float(hit) / kAll);
            result.light.at(x, y) = light;
            result.land[std::size_t(y) * std::size_t(camera.width) + std::size_t(x)] = float(hit) / kAll;
        }
    });
    return result;
}

}  // namespace sample
