#pragma once

#include "picture.h"
#include "terrain.h"

namespace sample {

/// Sky and land as seen from `eye` metres above the water. A negative eye is the viewer's mirror image under
/// the water: what it sees is what the water reflects.
struct Panorama {
    Picture light;  // from the top of the picture to a little below the horizon
    std::vector<float>
        land;  // for each pixel the share covered by land, 0..1; below the horizon the rest is water
};

Panorama renderPanorama(const Camera& camera, const Terrain& terrain, bool mirrored);

}  // namespace sample
