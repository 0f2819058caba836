#include "tools/red_eye_correction.h"

#include <algorithm>
#include <cstdint>

#include "platform/graphics/fill.h"

namespace orvane {
namespace {

struct Circle {
    int x = 0, y = 0, radius = 0;
    [[nodiscard]] bool contains(int px, int py) const {
        const std::int64_t dx = px - x, dy = py - y, r = radius;
        return dx * dx + dy * dy <= r * r;
    }
};

bool isPupilRed(Argb p) { return redOf(p) > 120 && greenOf(p) < 90 && blueOf(p) < 90; }
bool isDark(Argb p) { return redOf(p) < 140 || greenOf(p) < 140 || blueOf(p) < 140; }

// The circle around the red pixels. Without any the bounds stay inside out, and it has no pixel.
Circle pupilIn(MutablePixelView image, IntRect area) {
    const Circle eye{area.x + area.width / 2, area.y + area.height / 2,
                     std::min(area.width / 2, area.height / 2)};
    int minX = area.right(), maxX = area.x, minY = area.bottom(), maxY = area.y;
    const IntRect seen = clippedTo({image.width, image.height}, area);
    for (int y = seen.y; y < seen.bottom(); ++y) {
        for (int x = seen.x; x < seen.right(); ++x) {
            if (!isPupilRed(image.at(x, y)) || !eye.contains(x, y)) continue;
            minX = std::min(minX, x);
            maxX = std::max(maxX, x);
            minY = std::min(minY, y);
            maxY = std::max(maxY, y);
        }
    }
    return {(minX + maxX) / 2, (minY + maxY) / 2, std::max((maxX - minX) / 2, (maxY - minY) / 2) + 1};
}

}  // namespace

void correctRedEye(MutablePixelView image, IntRect area) noexcept {
    const Circle pupil = pupilIn(image, area);
    if (pupil.radius < 0) return;
    const int side = 2 * pupil.radius + 1;
    const IntRect square =
        clippedTo({image.width, image.height}, {pupil.x - pupil.radius, pupil.y - pupil.radius, side, side});
    for (int y = square.y; y < square.bottom(); ++y) {
        for (int x = square.x; x < square.right(); ++x) {
            Argb& p = image.at(x, y);
            if (pupil.contains(x, y) && isDark(p)) p = makeOpaque(redOf(p) >> 1, greenOf(p), blueOf(p));
        }
    }
}

}  // namespace orvane
