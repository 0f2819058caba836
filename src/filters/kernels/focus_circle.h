#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvane {

/// A circle around a pixel and a rim around the circle. Distances are cut to whole pixels, trunc of the root
/// in double precision: d < radius is inside, radius <= d < radius + rim is the rim. Any numbers will do.
struct FocusCircle {
    int radius = 0, rim = 0;
    int centreX = 0, centreY = 0;

    [[nodiscard]] std::int64_t distance(int x, int y) const {
        const double dx = double(centreX) - x, dy = double(centreY) - y;
        return static_cast<std::int64_t>(std::sqrt(dx * dx + dy * dy));
    }

    /// The columns of a row of pixels:
    ///
    ///     0      rimBegin      insideBegin      insideEnd      rimEnd      width
    ///     | outside |    rim     |     inside     |     rim     | outside |
    struct Row {
        int rimBegin, insideBegin, insideEnd, rimEnd;
    };
    [[nodiscard]] Row row(int y, int width) const {
        const std::int64_t outer = std::max<std::int64_t>(radius, std::int64_t{radius} + rim);
        const Span inside = nearer(y, width, radius), all = nearer(y, width, outer);
        return {all.begin, inside.begin, inside.end, all.end};
    }

 private:
    struct Span {
        int begin, end;
    };

    /// The columns nearer than this. The distance grows on either side of the centre, so they are one span.
    [[nodiscard]] Span nearer(int y, int width, std::int64_t limit) const {
        const int nearest = std::clamp(centreX, 0, width - 1);
        if (distance(nearest, y) >= limit) return {nearest, nearest};
        const auto isNearer = [&](int x) { return distance(x, y) < limit; };
        const auto isFarther = [&](int x) { return !isNearer(x); };
        return {firstOf(0, nearest, isNearer), firstOf(nearest + 1, width, isFarther)};
    }

    /// The first column in [begin, end) with a property that all to its right have too, or `end`.
    template <class Property>
    [[nodiscard]] static int firstOf(int begin, int end, const Property& holds) {
        while (begin < end) {
            const int middle = begin + (end - begin) / 2;
            if (holds(middle)) {
                end = middle;
            } else {
                begin = middle + 1;
            }
        }
        return begin;
    }
};

}  // namespace orvane
