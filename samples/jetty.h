#pragma once

#include "vector.h"

namespace sample {

/// A wooden landing stage that leads from the viewer's feet out onto the lake, with a lantern on its last
/// post.
struct JettyHit {
    float distance = -1;  // along the ray, in lengths of its direction; negative: missed
    Vec3 light;
};

JettyHit seeJetty(Vec3 origin, Vec3 direction);

}  // namespace sample
