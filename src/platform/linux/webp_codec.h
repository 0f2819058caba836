#pragma once

#include <cstdint>
#include <span>

#include "platform/image_codecs.h"

namespace orvane {

/// Decodes a WebP picture, lossy or lossless, with or without alpha, by libwebp straight into the target. Of
/// an animation the first frame is taken, on a transparent canvas. A file shorter than its container says is
/// refused before the target is asked for memory.
[[nodiscard]] bool decodeWebp(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

}  // namespace orvane
