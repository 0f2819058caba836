#pragma once

#include <optional>

#include "filters/kernels/count_levels.h"

namespace orvane {

class ImageDocument;

/// How many pixels of the current image have each level 0..255 of a channel or of the luma
/// trunc(0.2125 R + 0.7154 G + 0.0721 B); the counts add up to width x height. Nothing for an empty document.
/// The image and its history stay as they are.
[[nodiscard]] std::optional<LevelCounts> redHistogram(const ImageDocument& document) noexcept;
[[nodiscard]] std::optional<LevelCounts> greenHistogram(const ImageDocument& document) noexcept;
[[nodiscard]] std::optional<LevelCounts> blueHistogram(const ImageDocument& document) noexcept;
[[nodiscard]] std::optional<LevelCounts> lumaHistogram(const ImageDocument& document) noexcept;

}  // namespace orvane
