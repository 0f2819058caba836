#include "platform/graphics/stretch_axis.h"

#include <algorithm>

namespace orvane {
namespace {

float fraction(std::int64_t part, std::int64_t whole) noexcept { return float(double(part) / double(whole)); }

}  // namespace

StretchAxis::StretchAxis(int sourceLength, int targetLength) noexcept
    : source_(sourceLength),
      target_(targetLength),
      kind_(source_ == target_  ? Kind::Copy
            : source_ < target_ ? Kind::Enlarge
                                : Kind::Shrink) {
    if (kind_ != Kind::Shrink) return;
    // A stretch of length f > 1 touches ceil(f) or ceil(f) + 1 pixels; all but the first and the last one or
    // two of them lie wholly inside.
    whole_ = int((source_ + target_ - 1) / target_) - 2;
    scale_ = fraction(target_, source_);
}

Footprint StretchAxis::at(int position) const noexcept {
    switch (kind_) {
        case Kind::Copy:
            return {position, 1, 0, 0};
        case Kind::Enlarge:
            return interpolated(position);
        case Kind::Shrink:
            break;
    }
    return covered(position);
}

Footprint StretchAxis::interpolated(int position) const noexcept {
    // ((position + 1/2) * source / target - 1/2) as a fraction of 2 * target.
    const std::int64_t centre = (2 * std::int64_t{position} + 1) * source_ - target_;
    if (centre <= 0) return {};
    const std::int64_t first = centre / (2 * target_);
    if (first >= source_ - 1) return {int(source_ - 1), 1, 0, 0};
    const float tail = fraction(centre % (2 * target_), 2 * target_);
    return {int(first), 1 - tail, tail, 0};
}

Footprint StretchAxis::covered(int position) const noexcept {
    // Lengths in units of 1 / target of a source pixel.
    const std::int64_t start = std::int64_t{position} * source_, end = start + source_;
    const std::int64_t first = start / target_;
    const auto coverage = [&](std::int64_t pixel) {
        return fraction(std::clamp<std::int64_t>(end - pixel * target_, 0, target_), target_);
    };
    return {int(first), 1 - fraction(start % target_, target_), coverage(first + whole_ + 1),
            coverage(first + whole_ + 2)};
}

}  // namespace orvane
