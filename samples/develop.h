#pragma once

#include <cstdint>
#include <vector>

#include "picture.h"

namespace sample {

/// From light to a photograph: the glow around bright spots, the darker corners of the lens, the film's tone
/// curve and grain. The result holds B, G, R for each pixel, top row first.
std::vector<std::uint8_t> develop(const Picture& picture);

}  // namespace sample
