#include "document/clipboard_picture.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "document/surface_target.h"
#include "platform/codecs/clipboard_bitmap.h"

namespace orvane {

IntRect pixelsBetween(const ImageDocument& document, IntPoint first, IntPoint last) noexcept {
    const int left = std::max(first.x, 0), top = std::max(first.y, 0);
    const int right = std::min(last.x, document.width() - 1),
              bottom = std::min(last.y, document.height() - 1);
    return left <= right && top <= bottom ? IntRect{left, top, right - left + 1, bottom - top + 1}
                                          : IntRect{};
}

std::vector<std::uint8_t> clipboardBlockOf(const ImageDocument& document, IntRect area) noexcept {
    if (area.isEmpty()) return {};
    const PixelView image = document.currentPixels();
    assert(area.intersected({0, 0, image.width, image.height}) == area);
    return encodeClipboardBitmap({image.row(area.y) + area.x, area.width, area.height, image.stridePixels});
}

PixelSurface pictureFromClipboardBlock(std::span<const std::uint8_t> block) noexcept {
    SurfaceTarget target;
    if (!decodeClipboardBitmap(block, target)) return {};
    return std::move(target.surface);
}

}  // namespace orvane
