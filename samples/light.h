#pragma once

#include "vector.h"

/// The hour of the picture: a quarter of an hour before sunset, the sun low on the left.
namespace sample {

inline const Vec3 kTowardsSun = normalised({-0.80f, 0.20f, -0.56f});
constexpr Vec3 kSunlight = {6.0f, 2.75f, 1.22f};
constexpr Vec3 kSkylight = {0.30f, 0.40f, 0.62f};

/// The light of the sky in a direction (of length 1, above the horizon), clouds included.
Vec3 skyLight(Vec3 direction);

/// What the air between makes of the light of something `distance` metres away and `height` metres up.
Vec3 throughAir(Vec3 light, float distance, float height, Vec3 direction);

}  // namespace sample
