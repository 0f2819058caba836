#include "light.h"

#include "noise.h"

namespace sample {
namespace {

/// The cloudless sky: bands of colour by elevation, warmer on the sun's side.
Vec3 clearSky(Vec3 direction) {
    constexpr struct {
        float sine;
        Vec3 light;
    } kBands[] = {{0.0f, {0.93f, 0.60f, 0.42f}},  {0.07f, {0.90f, 0.62f, 0.47f}},
                  {0.14f, {0.74f, 0.62f, 0.58f}}, {0.22f, {0.50f, 0.54f, 0.65f}},
                  {0.32f, {0.30f, 0.41f, 0.62f}}, {0.50f, {0.16f, 0.28f, 0.53f}},
                  {1.0f, {0.07f, 0.15f, 0.36f}}};
    const float sine = clamp01(direction.y);
    int band = 0;
    while (band < 5 && sine > kBands[band + 1].sine) ++band;
    const float t = smoothstep(kBands[band].sine, kBands[band + 1].sine, sine);
    const Vec3 light = mix(kBands[band].light, kBands[band + 1].light, t);
    const float warmth = std::exp(-9.0f * sine) * smoothstep(0.45f, -0.65f, direction.x);
    return light * (1.0f - 0.25f * direction.x) + Vec3{0.62f, 0.27f, 0.04f} * warmth;
}

/// How thick a layer of drawn-out cloud is over a point of it, 0..1.
float cloudCover(float x, float z) {
    const float turned = 0.35f * x + z;
    const float bend = fractalNoise(x * 0.25f + 4.0f, z * 0.25f, 3, 131) - 0.5f;
    const float large = fractalNoise(x * 0.11f + 0.6f * bend, turned * 0.16f + bend, 3, 140);
    const float fine = fractalNoise(x * 0.62f + 1.6f * bend, turned * 1.05f + 2.4f * bend, 7, 150);
    return smoothstep(0.57f, 0.90f, large * 0.80f + fine * 0.66f);
}

}  // namespace

Vec3 skyLight(Vec3 direction) {
    const Vec3 clear = clearSky(direction);
    const float sine = std::max(direction.y, 0.004f);
    // A flat layer of cloud; the unit is its height above the ground.
    const float x = direction.x / sine * 1.7f + 7.0f, z = direction.z / sine * 1.7f;
    const float cover = cloudCover(x, z) * smoothstep(0.035f, 0.13f, sine);
    if (cover <= 0) return clear;
    const float towards = cloudCover(x - 0.28f, z - 0.09f);
    const float edge = clamp01(0.62f + 1.5f * (cover - towards) - 0.35f * cover);
    const Vec3 lit =
        mix(Vec3{1.25f, 0.70f, 0.50f}, Vec3{1.45f, 0.78f, 0.42f}, smoothstep(0.3f, -0.5f, direction.x));
    const Vec3 body = mix(Vec3{0.40f, 0.37f, 0.47f}, lit, edge);
    return mix(clear, body, 0.88f * cover);
}

Vec3 throughAir(Vec3 light, float distance, float height, Vec3 direction) {
    const float thin = std::exp(-std::max(height, 0.0f) / 2600.0f);
    const float haze = 1.0f - std::exp(-distance * thin / 27000.0f);
    // Evening mist lies low, in the valley behind the lake.
    const float mist =
        0.6f * std::exp(-std::max(height, 0.0f) / 60.0f) * smoothstep(1300.0f, 5200.0f, distance);
    const Vec3 air =
        mix(Vec3{0.36f, 0.44f, 0.66f}, Vec3{0.58f, 0.50f, 0.60f}, smoothstep(0.45f, -0.65f, direction.x));
    return mix(mix(light, air, haze), air * 1.02f, mist * (1.0f - haze));
}

}  // namespace sample
