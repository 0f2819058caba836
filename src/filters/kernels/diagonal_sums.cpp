#include "filters/kernels/diagonal_sums.h"

#include <algorithm>

namespace orvane {
namespace {

ChannelSums& operator+=(ChannelSums& sums, const ChannelSums& more) {
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += more[i];
    return sums;
}

}  // namespace

EndlessLine::EndlessLine(const Argb* first, std::ptrdiff_t stride, int count)
    : before_(std::size_t(count) + 1), first_(*first), last_(first[stride * (count - 1)]) {
    ChannelSums sums{};
    for (int i = 0; i < count; ++i) {
        addTo(sums, first[stride * i]);
        before_[std::size_t(i) + 1] = sums;
    }
}

ChannelSums EndlessLine::sumBefore(std::int64_t place) const {
    const std::int64_t count = std::int64_t(before_.size()) - 1;
    ChannelSums sums = before_[std::size_t(std::clamp<std::int64_t>(place, 0, count))];
    if (place < 0) addTo(sums, first_, place);
    if (place > count) addTo(sums, last_, place - count);
    return sums;
}

ChannelSums EndlessLine::sum(std::int64_t from, std::int64_t to) const {
    if (to < from) return {};
    ChannelSums sums = sumBefore(to + 1);
    const ChannelSums less = sumBefore(from);
    for (std::size_t i = 0; i < sums.size(); ++i) sums[i] -= less[i];
    return sums;
}

DiagonalSums::DiagonalSums(PixelView source, int radius, Slope slope)
    : source_(source),
      radius_(radius),
      step_(slope == Slope::Falling ? 1 : -1),
      top_(source.row(0), 1, source.width),
      bottom_(source.row(source.height - 1), 1, source.width),
      entry_(source.pixels + (step_ > 0 ? 0 : source.width - 1), source.stridePixels, source.height),
      exit_(source.pixels + (step_ > 0 ? source.width - 1 : 0), source.stridePixels, source.height) {}

ChannelSums DiagonalSums::at(int x, int y) const {
    // A window bends twice: it comes in along a border, crosses the picture, and goes on along another one.
    const auto along = [&](const EndlessLine& row, std::int64_t from, std::int64_t to) {
        return to < from ? ChannelSums{}
                         : row.sum(std::min(x + step_ * from, x + step_ * to),
                                   std::max(x + step_ * from, x + step_ * to));
    };
    ChannelSums sums = y == 0 ? along(top_, -radius_, -1) : entry_.sum(y - radius_, y - 1);

    const int toExit = step_ > 0 ? source_.width - 1 - x : x, toBottom = source_.height - 1 - y;
    const int inside = int(std::min<std::int64_t>({radius_, toExit, toBottom}));
    for (int i = 0; i <= inside; ++i) addTo(sums, source_.at(x + step_ * i, y + i));

    sums += toExit < toBottom ? exit_.sum(y + inside + 1, y + radius_) : along(bottom_, inside + 1, radius_);
    return sums;
}

}  // namespace orvane
