#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/image_codecs.h"

/// JPEG to pixels and back, by libjpeg-turbo.
namespace orvane {

/// Decodes baseline and progressive pictures in grey, YCbCr, RGB, CMYK and YCCK with any chroma sampling,
/// straight into the target. CMYK becomes RGB as ink on white paper, with no profile; the inverted samples
/// that Adobe programs write are recognised by their marker. An orientation note of a camera is not applied.
///
/// Bytes between or after the parts of a file and a lost end mark do no harm, since no pixel depends on
/// them. False for missing or unreadable picture data, for arithmetic coding (which no camera or browser
/// writes), for a size that the amount of data cannot carry, and for a progressive picture of so many scans
/// that it is meant to keep the decoder busy.
[[nodiscard]] bool decodeJpeg(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept;

/// Writes a baseline picture. Quality counts 0..100 on libjpeg's scale, where 0 is treated as 1; from 90 on
/// the chroma keeps its full resolution, below it is halved both ways. Alpha is ignored. Empty when memory
/// ran out, the picture is empty or a side exceeds 65500.
[[nodiscard]] std::vector<std::uint8_t> encodeJpeg(PixelView picture, int quality) noexcept;

}  // namespace orvane
