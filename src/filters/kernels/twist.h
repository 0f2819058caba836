#pragma once

#include <orvane/pixels.h>

#include <cmath>

#include "base/truncate.h"

namespace orvane {

/// The definition of a twist: where the pixel at an offset from the centre comes from.
struct Twist {
    Twist(PixelView source, int degrees)
        : centreX(source.width / 2),
          centreY(source.height / 2),
          perPixel(degrees / std::sqrt(double(centreX) * centreX + double(centreY) * centreY)) {}

    /// Its index in the source, or kOutside.
    [[nodiscard]] int placeOf(PixelView source, int dx, int dy) const {
        const double r = std::sqrt(double(dx) * dx + double(dy) * dy), angle = r * perPixel * kRadians;
        const double cosine = std::cos(angle), sine = std::sin(angle);
        const int x = truncateToInt(centreX + dx * cosine - dy * sine);
        const int y = truncateToInt(centreY + dx * sine + dy * cosine);
        if (x < 0 || x >= source.width || y < 0 || y >= source.height) return kOutside;
        return int(source.stridePixels) * y + x;
    }

    static constexpr int kOutside = -1, kUncertain = -2;
    static constexpr double kRadians = 0.0174532925;  // per degree

    int centreX, centreY;
    double perPixel;  // degrees
};

}  // namespace orvane
