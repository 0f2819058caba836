#include "filters/kernels/window_extremes.h"

#include <hwy/cache_control.h>

#include <algorithm>

#include "platform/graphics/fill.h"

namespace orvane {
namespace {

// The picture is worked on in tiles of columns whose blocks of rows and suffixes stay in the caches. They are
// as wide as possible, because memory gives whole rows faster than parts.
constexpr std::size_t kNearBytes = std::size_t{8} << 20;
constexpr int kLeastTileColumns = 512;

int tileColumns(PixelView source, int radius) {
    const auto r = std::int64_t{radius};
    const auto rows = std::min<std::int64_t>(2 * r + 1, source.height);
    const std::int64_t reached = std::int64_t(kNearBytes / (2 * sizeof(Argb))) / rows;
    const auto columns = std::max({reached - 2 * r, 2 * r, std::int64_t{kLeastTileColumns}});
    return int(std::min<std::int64_t>(columns / 16 * 16, source.width));
}

// Results from this size on leave the caches anyway before anyone reads them.
constexpr std::size_t kStreamedBytes = std::size_t{24} << 20;

}  // namespace

void windowExtreme(Extreme extreme, PixelView source, MutablePixelView target, int radius) {
    const bool streamed = source.pixelCount() * sizeof(Argb) >= kStreamedBytes;
    const int tile = tileColumns(source, radius);
    for (int x = 0; x < source.width; x += tile) {
        WindowExtremeRows rows(extreme, source, radius, x, std::min(tile, source.width - x));
        for (int y = 0; y < source.height; ++y) rows.nextRow(target.row(y) + x, streamed);
    }
    if (streamed) hwy::FlushStream();
}

WindowExtremeRows::Reach::Reach(int width, int radius, int firstColumn, int columnCount) noexcept {
    // In a window that reaches beyond both ends nothing more is found by going further.
    const int r = std::min(radius, width - 1);
    const int from = firstColumn - r, to = firstColumn + columnCount + r;
    begin = std::max(from, 0);
    const int end = std::min(to, width);
    window = std::size_t(2 * r + 1);
    leftMargin = std::size_t(begin - from);
    inside = std::size_t(end - begin);
    rightMargin = std::size_t(to - end);
    constexpr std::size_t kLineWords = 64 / sizeof(Argb);
    inset = (kLineWords - leftMargin % kLineWords) % kLineWords;
}

std::size_t WindowExtremeRows::Reach::rowLength() const noexcept {
    return inset + leftMargin + inside + rightMargin + extreme_rows::kSlack;
}

WindowExtremeRows::WindowExtremeRows(Extreme extreme, PixelView source, int radius, int firstColumn,
                                     int columnCount)
    : extreme_(extreme),
      reach_(source.width, radius, firstColumn, columnCount),
      columnCount_(std::size_t(columnCount)),
      columnExtremes_(extreme, subView(source, {reach_.begin, 0, int(reach_.inside), source.height}), radius),
      row_(reach_.rowLength()),
      scratch_(reach_.rowLength()) {}

void WindowExtremeRows::nextRow(Argb* target, bool streamed) noexcept {
    Argb* const row = row_.data() + reach_.inset;
    Argb* const inside = row + reach_.leftMargin;
    columnExtremes_.nextRow(inside);
    std::fill_n(row, reach_.leftMargin, inside[0]);
    // What vectors read beyond the row's end is defined, too.
    std::fill_n(inside + reach_.inside, reach_.rightMargin + extreme_rows::kSlack, inside[reach_.inside - 1]);
    extreme_rows::slide(extreme_, row, scratch_.data(), reach_.window, target, columnCount_, streamed,
                        columnExtremes_.rowAhead());
}

LocalRangeRows::LocalRangeRows(PixelView source, int radius, int firstColumn, int columnCount)
    : columnCount_(std::size_t(columnCount)),
      minimumRows_(Extreme::Minimum, source, radius, firstColumn, columnCount),
      maximumRows_(Extreme::Maximum, source, radius, firstColumn, columnCount),
      minimum_(columnCount_),
      maximum_(columnCount_),
      range_(columnCount_) {}

const Argb* LocalRangeRows::nextRow() noexcept {
    minimumRows_.nextRow(minimum_.data());
    maximumRows_.nextRow(maximum_.data());
    extreme_rows::subtract(maximum_.data(), minimum_.data(), range_.data(), columnCount_);
    return range_.data();
}

}  // namespace orvane
