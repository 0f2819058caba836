#include "water.h"

#include "jetty.h"
#include "light.h"
#include "noise.h"

namespace sample {
namespace {

/// The slope of the water's surface. Waves shorter than the footprint (metres, along z) are returned as
/// roughness instead.
struct Surface {
    float slopeX = 0, slopeZ = 0, roughness = 0;
};

Surface surfaceAt(float x, float z, float footprint) {
    // Where a breath of wind touches the lake it is rougher; the streaks lie across the view.
    const float wind = smoothstep(0.42f, 0.72f, fractalNoise(x / 70.0f, z / 190.0f + 3.0f, 4, 300));
    const float strength = mix(0.010f, 0.034f, wind);
    Surface surface;
    float length = 2.6f, weight = 0.9f;
    for (std::uint32_t octave = 0; octave < 5; ++octave, length *= 0.52f, weight *= 0.85f) {
        const float visible = smoothstep(length * 0.9f, length * 0.25f, footprint);
        if (visible > 0) {
            const Slope n = valueNoise(x / (length * 1.6f) + z * 0.21f / length, z / length, 310 + octave);
            surface.slopeX += strength * weight * visible * n.dx * 0.6f;
            surface.slopeZ += strength * weight * visible * n.dy;
        }
        surface.roughness += strength * weight * (1.0f - visible) * 0.55f;
    }
    return surface;
}

}  // namespace

Vec3 waterLight(const Camera& camera, const Panorama& mirrored, float x, float y) {
    const Vec3 ray = camera.ray(x, y);
    const float depth = camera.eye / std::max(-ray.y, 1e-5f);
    const Vec3 place = {ray.x * depth, 0, depth};
    const float footprint = depth * depth / (camera.focal() * camera.eye);
    const Surface surface = surfaceAt(place.x, place.z, footprint);
    const float grazing = -ray.y / std::sqrt(dot(ray, ray));
    const float mirror = 0.02f + 0.98f * std::pow(1.0f - clamp01(grazing + 0.5f * surface.roughness), 5.0f);

    constexpr int kTaps = 6;
    Vec3 reflected;
    float open = 1.0f;  // what the jetty shades is darker still
    for (int tap = 0; tap < kTaps; ++tap) {
        const float spread = (float(tap) + hash(int(x), int(y), std::uint32_t(tap))) / kTaps * 2.0f - 1.0f;
        const float slope = surface.slopeZ + surface.roughness * spread;
        Vec3 up = {ray.x + 2.0f * surface.slopeX * grazing, std::abs(-ray.y + 2.0f * slope), 1.0f};
        if (depth < 60.0f) {
            const JettyHit hit = seeJetty(place, up);
            if (hit.distance > 0) {
                reflected = reflected + hit.light;
                open -= 0.75f / kTaps;
                continue;
            }
        }
        const float column = up.x * camera.focal() + 0.5f * float(camera.width) - 0.5f;
        const float row = camera.horizon() - up.y * camera.focal() - 0.5f;
        reflected = reflected + mirrored.light.between(column, std::min(row, camera.horizon() - 1.0f));
    }
    const Vec3 deep = Vec3{0.008f, 0.022f, 0.028f} * open;
    return mix(deep, reflected * (1.0f / kTaps), mirror) + deep * 0.25f;
}

}  // namespace sample
