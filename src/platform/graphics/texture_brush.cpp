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
    const std::size_t length = std::min(count, std::size_t(period));
    std::int64_t position = positionInPeriod(x, period);
    for (std::size_t done = 0; done < length;) {
        const bool reflected = position >= width;
        const std::int64_t end = reflected ? period : width;
        const std::size_t piece = std::min(length - done, std::size_t(end - position));
        if (reflected) {
            const Argb* last = row + (period - position);
            std::reverse_copy(last - piece, last, colours + done);
        } else {
            std::copy_n(row + position, piece, colours + done);
        }
        done += piece;
        position = end == period ? 0 : end;
    }
    repeatRow(colours, length, count);
}

}  // namespace orvane
