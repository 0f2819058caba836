#pragma once

#include <cstdint>

#include "vector.h"

/// Smooth random patterns. All are pure functions of position and seed, so that the picture is the same on
/// every run.
namespace sample {

/// A number in 0..1 that belongs to one lattice cell.
inline float hash(int x, int y, std::uint32_t seed) {
    std::uint32_t h = std::uint32_t(x) * 0x8da6b343u ^ std::uint32_t(y) * 0xd8163841u ^ seed * 0xcb1ab31fu;
    h = (h ^ (h >> 15)) * 0x2c1b3c6du;
    h = (h ^ (h >> 12)) * 0x297a2d39u;
    h ^= h >> 15;
    return float(h >> 8) * (1.0f / 16777216.0f);
}

/// A noise value in 0..1 with its slope along both axes.
struct Slope {
    float value, dx, dy;
};

inline Slope valueNoise(float x, float y, std::uint32_t seed) {
    const float fx = std::floor(x), fy = std::floor(y);
    const int ix = int(fx), iy = int(fy);
    const float tx = x - fx, ty = y - fy;
    const float a = hash(ix, iy, seed), b = hash(ix + 1, iy, seed);
    const float c = hash(ix, iy + 1, seed), d = hash(ix + 1, iy + 1, seed);
    const float ux = tx * tx * tx * (tx * (tx * 6 - 15) + 10), uy = ty * ty * ty * (ty * (ty * 6 - 15) + 10);
    const float sx = 30 * tx * tx * (tx * (tx - 2) + 1), sy = 30 * ty * ty * (ty * (ty - 2) + 1);
    const float twist = a - b - c + d;
    return {a + (b - a) * ux + (c - a) * uy + twist * ux * uy, sx * (b - a + twist * uy),
            sy * (c - a + twist * ux)};
}

/// Several octaves of noise, each turned against the one before so that no lattice shows; about 0..1.
inline float fractalNoise(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0, weight = 0.5f;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * valueNoise(x, y, seed + std::uint32_t(i)).value;
        weight *= 0.5f;
        const float turnedX = 1.6f * x - 1.2f * y;
        y = 1.2f * x + 1.6f * y;
        x = turnedX;
    }
    return sum;
}

/// Like fractalNoise, but a slope that is already steep takes up less fine detail. This is what running water
/// does to mountains: sharp ridges, smooth flanks and valley floors.
inline float erodedNoise(float x, float y, int octaves, std::uint32_t seed) {
    float sum = 0, weight = 0.5f, slopeX = 0, slopeY = 0;
    for (int i = 0; i < octaves; ++i) {
        const Slope n = valueNoise(x, y, seed + std::uint32_t(i));
        slopeX += n.dx;
        slopeY += n.dy;
        sum += weight * n.value / (1.0f + slopeX * slopeX + slopeY * slopeY);
        weight *= 0.5f;
        const float turnedX = 1.6f * x - 1.2f * y;
        y = 1.2f * x + 1.6f * y;
        x = turnedX;
    }
    return sum;
}

}  // namespace sample
