#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <orvane/geometry.h>

#include "document/image_document.h"

/// Parts of the image as clipboard blocks, and blocks as pictures.
namespace orvane {

/// The pixels of the image from one corner to the other, both included. What lies outside the image is left
/// out, so that a selection that ends just beyond an edge still gives pixels of the image and nothing else.
/// Empty when nothing is left, when `last` lies before `first`, or when the document is empty.
[[nodiscard]] IntRect pixelsBetween(const ImageDocument& document, IntPoint first, IntPoint last) noexcept;

/// That part of the image as a block for the clipboard, without alpha. `area` must lie in the image. Empty
/// for an empty area or when memory ran out.
[[nodiscard]] std::vector<std::uint8_t> clipboardBlockOf(const ImageDocument& document,
                                                         IntRect area) noexcept;

/// The picture in a block from the clipboard; null when it cannot be decoded or when memory ran out.
[[nodiscard]] PixelSurface pictureFromClipboardBlock(std::span<const std::uint8_t> block) noexcept;

}  // namespace orvane
