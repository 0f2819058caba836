#include "view/image_frame.h"

#include <algorithm>
#include <cstdint>

#include "platform/graphics/source_over.h"

namespace orvane {
namespace {

constexpr int kGap = 2;  // from the image to the outline's path

// Half pixels of pixel `position` that lie within the pixel centres `from` and `to`.
int halvesInside(int position, int from, int to) noexcept {
    return position < from || position > to ? 0 : position == from || position == to ? 1 : 2;
}

// Coverage of the band between two nested rectangles, one pixel outside and one inside the path.
std::uint8_t frameCoverage(const IntRect& path, int x, int y) noexcept {
    const auto quarters = [&](int grow) {
        return halvesInside(x, path.x - grow, path.right() + grow) *
               halvesInside(y, path.y - grow, path.bottom() + grow);
    };
    return std::uint8_t(((quarters(1) - quarters(-1)) * 255 + 2) / 4);
}

void drawFrameSpan(MutablePixelView target, const IntRect& path, int y, int begin, int end,
                   Argb colour) noexcept {
    constexpr int kBlock = 256;
    std::uint8_t coverage[kBlock];
    begin = std::max(begin, 0);
    end = std::min(end, target.width);
    for (int x = begin; x < end; x += kBlock) {
        const int count = std::min(kBlock, end - x);
        for (int i = 0; i < count; ++i) coverage[i] = frameCoverage(path, x + i, y);
        sourceOverMasked(colour, coverage, target.row(y) + x, std::size_t(count));
    }
}

}  // namespace

void drawImageFrame(MutablePixelView target, IntRect image, IntSize view, Argb colour) noexcept {
    const std::int64_t left = std::int64_t{image.x} - kGap, top = std::int64_t{image.y} - kGap;
    const std::int64_t width = std::int64_t{image.width} + 2 * kGap,
                       height = std::int64_t{image.height} + 2 * kGap;
    if (left < 0 || top < 0 || left + width > view.width || top + height > view.height) return;

    const IntRect path{int(left), int(top), int(width), int(height)};
    for (int y = std::max(path.y - 1, 0); y < std::min(path.bottom() + 2, target.height); ++y) {
        if (y <= path.y + 1 || y >= path.bottom() - 1) {
            drawFrameSpan(target, path, y, path.x - 1, path.right() + 2, colour);
        } else {
            drawFrameSpan(target, path, y, path.x - 1, path.x + 2, colour);
            drawFrameSpan(target, path, y, path.right() - 1, path.right() + 2, colour);
        }
    }
}

}  // namespace orvane
