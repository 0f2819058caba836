#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The picture of a slider's thumb, 14 x 23 pixels. Its surroundings are transparent.
[[nodiscard]] PixelView sliderThumb() noexcept;

}  // namespace orvane
