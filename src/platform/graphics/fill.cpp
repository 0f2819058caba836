#include "platform/graphics/fill.h"

#include <algorithm>
#include <cstdint>

namespace orvane {
namespace {

struct Range {
    int begin = 0, end = 0;
};

Range clippedRange(int start, int length, int limit) noexcept {
    const std::int64_t end = std::int64_t{start} + length;
    return {std::max(start, 0), int(std::min<std::int64_t>(end, limit))};
}

}  // namespace

IntRect clippedTo(IntSize raster, IntRect area) noexcept {
    const Range x = clippedRange(area.x, area.width, raster.width);
    const Range y = clippedRange(area.y, area.height, raster.height);
    if (x.begin >= x.end || y.begin >= y.end) return {};
    return {x.begin, y.begin, x.end - x.begin, y.end - y.begin};
}

PixelView subView(PixelView view, IntRect part) noexcept {
    return {view.row(part.y) + part.x, part.width, part.height, view.stridePixels};
}

MutablePixelView subView(MutablePixelView view, IntRect part) noexcept {
    return {view.row(part.y) + part.x, part.width, part.height, view.stridePixels};
}

void fillRect(MutablePixelView target, IntRect area, Argb colour) noexcept {
    const IntRect part = clippedTo({target.width, target.height}, area);
    if (part.isEmpty()) return;
    if (part.width == target.width && target.isContiguous()) {
        std::fill_n(target.row(part.y), std::size_t(part.width) * std::size_t(part.height), colour);
        return;
    }
    for (int y = part.y; y < part.bottom(); ++y) std::fill_n(target.row(y) + part.x, part.width, colour);
}

void fillAround(MutablePixelView target, IntRect hole, Argb colour) noexcept {
    const IntRect inside = clippedTo({target.width, target.height}, hole);
    fillRect(target, {0, 0, target.width, inside.y}, colour);
    fillRect(target, {0, inside.y, inside.x, inside.height}, colour);
    fillRect(target, {inside.right(), inside.y, target.width - inside.right(), inside.height}, colour);
    fillRect(target, {0, inside.bottom(), target.width, target.height - inside.bottom()}, colour);
}

}  // namespace orvane
