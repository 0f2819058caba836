#include "platform/graphics/dashes.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

constexpr double kShortestPeriod = 0.1;
constexpr double kLongestEntry = 1e12;  // pixels, farther than any line goes
constexpr double kArrived = 1e-9;       // so close to a change counts as there

double lengthOf(float entry, double width) {
    const double length = entry * width;
    return length > 0 ? std::min(length, kLongestEntry) : 0;
}

}  // namespace

DashWalk::DashWalk(const Pen& pen, double width) noexcept {
    const int count = std::clamp(pen.dash.count, 0, DashPattern::kMaxEntries);
    count_ = count % 2 == 0 ? count : 2 * count;
    double gaps = 0;
    for (int i = 0; i < count_; ++i) {
        lengths_[std::size_t(i)] = lengthOf(pen.dash.lengths[std::size_t(i % count)], width);
        period_ += lengths_[std::size_t(i)];
        if (i % 2 == 1) gaps += lengths_[std::size_t(i)];
    }
    if (period_ < kShortestPeriod || gaps == 0) {
        period_ = 0;
        return;
    }
    left_ = lengths_[0];
    if (left_ <= kArrived) next();
    const double offset = std::fmod(pen.dashOffset * width, period_);
    if (std::isfinite(offset)) skip(offset < 0 ? offset + period_ : offset);
}

// Entries of no length are passed over in pairs or alone: what matters is which side of a change one is on.
void DashWalk::next() noexcept {
    do {
        index_ = (index_ + 1) % count_;
        left_ = lengths_[std::size_t(index_)];
    } while (left_ <= kArrived);
}

void DashWalk::advance(double distance) noexcept {
    left_ -= distance;
    if (left_ <= kArrived) next();
}

void DashWalk::skip(double distance) noexcept {
    distance = std::fmod(distance, period_);
    for (; distance >= left_; next()) distance -= left_;
    advance(distance);
}

}  // namespace orvane
