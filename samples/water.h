#pragma once

#include "panorama.h"

namespace sample {

/// The light from the lake at a place of the picture below the horizon: the mirrored panorama, broken by
/// small waves, and the dark of the water itself where one looks into it steeply.
Vec3 waterLight(const Camera& camera, const Panorama& mirrored, float x, float y);

}  // namespace sample
