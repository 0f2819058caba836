#include <algorithm>

#include "platform/graphics/brush_rows.h"

namespace orvane {
namespace {

/// The row or column of a picture of `length` that stands at a coordinate. Mirrored, the picture and its
/// reflection alternate, the one at the origin upright.
std::int64_t repeated(std::int64_t coordinate, std::int64_t length, bool mirrored) {
    if (!mirrored) return positionInPeriod(coordinate, length);
    const std::int64_t position = positionInPeriod(coordinate, 2 * length);
    return position < length ? position : 2 * length - 1 - position;
}

}  // namespace

void textureRow(const TextureBrush& brush, int x, int y, std::size_t count, Argb* colours) noexcept {
    const PixelView& picture = brush.picture;
    if (!picture || picture.width < 1 || picture.height < 1) {
        std::fill_n(colours, count, Argb{0});
        return;
    }
    const bool mirrorX = brush.wrap == WrapMode::FlipX || brush.wrap == WrapMode::FlipXY;
    const bool mirrorY = brush.wrap == WrapMode::FlipY || brush.wrap == WrapMode::FlipXY;
    const Argb* row = picture.row(int(repeated(y, picture.height, mirrorY)));

    const std::int64_t width = picture.width, period = mirrorX ? 2 * width : width;
    std::int64_t position = positionInPeriod(x, period);
    while (count != 0) {
        const bool reflected = position >= width;
        const std::int64_t end = reflected ? period : width;
        const auto length = std::min(count, std::size_t(end - position));
        if (reflected) {
            std::reverse_copy(row + (period - position) - length, row + (period - position), colours);
        } else {
            std::copy_n(row + position, length, colours);
        }
        colours += length;
        count -= length;
        position = end == period ? 0 : end;
    }
}

}  // namespace orvane
