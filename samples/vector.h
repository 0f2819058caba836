#pragma once

#include <algorithm>
#include <cmath>

/// The little arithmetic that the sample picture needs: three numbers at a time, as a position or as linear
/// light.
namespace sample {

struct Vec3 {
    float x = 0, y = 0, z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec3 operator*(Vec3 a, Vec3 b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
inline Vec3 operator*(Vec3 a, float s) { return {a.x * s, a.y * s, a.z * s}; }
inline float dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vec3 normalised(Vec3 a) { return a * (1.0f / std::sqrt(dot(a, a))); }

inline float mix(float a, float b, float t) { return a + (b - a) * t; }
inline Vec3 mix(Vec3 a, Vec3 b, float t) { return a + (b - a) * t; }
inline float clamp01(float v) { return std::clamp(v, 0.0f, 1.0f); }

/// 0 below `from`, 1 above `to`, an S-shaped ramp between them.
inline float smoothstep(float from, float to, float v) {
    const float t = clamp01((v - from) / (to - from));
    return t * t * (3.0f - 2.0f * t);
}

}  // namespace sample
