#include "filters/kernels/column_extremes.h"

#include <algorithm>
#include <cstring>

namespace orvane {

ColumnExtremes::ColumnExtremes(Extreme extreme, PixelView source, int radius)
    : extreme_(extreme),
      source_(source),
      // A window that reaches beyond both ends has the whole column; a larger one has no more.
      radius_(std::min(radius, source.height - 1)),
      blockLength_(2 * radius_ + 1),
      count_(std::size_t(source.width)),
      rowLength_(count_ + extreme_rows::kSlack),
      suffixes_(rowLength_ * std::size_t(std::min(blockLength_, source.height))),
      runningRow_(rowLength_) {}

void ColumnExtremes::nextRow(Argb* target) noexcept {
    const int y = next_++;
    const int first = std::max(y - radius_, 0), last = std::min(y + radius_, source_.height - 1);
    if (first / blockLength_ == last / blockLength_) {
        // Cut off at one of the picture's ends, or a whole block.
        extendTo(last);
        const Argb* const extremes = first % blockLength_ == 0 ? running_ : suffix(first);
        std::memcpy(target, extremes, count_ * sizeof(Argb));
        return;
    }
    extendTo(last - 1);
    const Argb* const ending = suffix(first);
    if (reached_ == last || last % blockLength_ == 0) {
        extendTo(last);
        extreme_rows::combine(extreme_, running_, ending, target, count_);
    } else {
        extreme_rows::combineTwice(extreme_, source_.row(last), running_, runningRow_.data(), ending, target,
                                   count_);
        running_ = runningRow_.data();
        reached_ = last;
    }
}

void ColumnExtremes::extendTo(int row) noexcept {
    while (reached_ < row) {
        ++reached_;
        if (reached_ % blockLength_ == 0) {
            running_ = source_.row(reached_);
        } else {
            extreme_rows::combine(extreme_, source_.row(reached_), running_, runningRow_.data(), count_);
            running_ = runningRow_.data();
        }
    }
}

const Argb* ColumnExtremes::suffix(int row) noexcept {
    const int block = row / blockLength_;
    if (block != suffixBlock_) buildSuffixes(block);
    const int end = std::min((block + 1) * blockLength_, source_.height);
    return row == end - 1 ? source_.row(row)
                          : suffixes_.data() + rowLength_ * std::size_t(row - block * blockLength_);
}

void ColumnExtremes::buildSuffixes(int block) noexcept {
    const int begin = block * blockLength_, end = std::min(begin + blockLength_, source_.height);
    const Argb* below = source_.row(end - 1);
    for (int row = end - 2; row >= begin; --row) {
        Argb* const here = suffixes_.data() + rowLength_ * std::size_t(row - begin);
        extreme_rows::combine(extreme_, source_.row(row), below, here, count_);
        below = here;
    }
    suffixBlock_ = block;
}

}  // namespace orvane
