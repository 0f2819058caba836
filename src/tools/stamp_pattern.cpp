#include "tools/stamp_pattern.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvane {
namespace {

constexpr Argb kColour = 0x00FFFFFFu;
constexpr double kOutside = -1;  // where a pattern shows nothing

double length(int dx, int dy) { return std::sqrt(double(std::int64_t{dx} * dx + std::int64_t{dy} * dy)); }

// How far the pattern has gone from its first transparency to its second: 0..1, or kOutside.
class Progress {
 public:
    explicit Progress(int style, int width, int height)
        : style_(style), width_(width), height_(height), diagonal_(length(width, height)) {}

    double at(int x, int y) const {
        switch (style_) {
            case 1:
                return double(y) / height_;
            case 2:
                return double(x) / width_;
            case 3:
                return length(x, y) / diagonal_;
            case 4:
                return length(x - width_, y) / diagonal_;
            case 5:
                return fromCentre(x, y) / (0.5 * diagonal_);
            case 6:
                return insideCircle(fromCentre(x, y));
            default:
                return 0;
        }
    }

 private:
    double fromCentre(int x, int y) const { return length(x - width_ / 2, y - height_ / 2); }
    double insideCircle(double distance) const {
        const double radius = 0.5 * std::min(width_, height_);
        return distance <= radius ? distance / radius : kOutside;
    }

    int style_, width_, height_;
    double diagonal_;
};

unsigned blend(double progress, const StampSettings& settings) {
    if (progress == kOutside) return 0;
    return unsigned(int((1 - progress) * settings.transparency1 + progress * settings.transparency2));
}

}  // namespace

void applyStampPattern(MutablePixelView picture, const StampSettings& settings) noexcept {
    const bool opaque = settings.transparency1 == 255 && settings.transparency2 == 255;
    const Progress progress(opaque ? 0 : settings.style, picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        Argb* row = picture.row(y);
        for (int x = 0; x < picture.width; ++x) {
            const Argb colour = row[x] & kColour;
            const bool masked = settings.useMaskColour && colour == (settings.maskColour & kColour);
            row[x] = colour | (masked ? 0 : blend(progress.at(x, y), settings) << 24);
        }
    }
}

}  // namespace orvane
