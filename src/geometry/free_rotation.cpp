#include "geometry/free_rotation.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "document/image_document.h"
#include "platform/graphics/transform.h"

namespace orvane {
namespace {

constexpr double kRadiansPerDegree = 0.0174532925;

// The frame is turned about its centre in whole pixels, whatever its size.
PlanePoint turningPoint(IntSize frame) noexcept {
    return {double(frame.width / 2), double(frame.height / 2)};
}

AffineMap turnedAbout(PlanePoint centre, double radians) noexcept {
    return AffineMap::translation(centre.x, centre.y)
        .after(AffineMap::rotation(radians))
        .after(AffineMap::translation(-centre.x, -centre.y));
}

double distanceToLine(PlanePoint from, PlanePoint to, PlanePoint point) noexcept {
    const double a = to.y - from.y, b = from.x - to.x;
    const double c = -from.x * a - b * from.y;
    const double length = std::sqrt(a * a + b * b);
    return std::fabs(a / length * point.x + b / length * point.y + c / length);
}

// The document's picture turned, on top of what the surface holds unless the picture is opaque.
void drawTurned(const ImageDocument& document, PixelSurface& next) noexcept {
    const IntSize size = document.size();
    const IntRect frame{0, 0, size.width, size.height};
    const bool isOpaque = document.currentSurface()->isOpaque();
    const MutablePixelView target = next.overwrite();
    const PixelView picture = document.currentPixels();
    if (!isOpaque) std::copy_n(picture.pixels, picture.pixelCount(), target.pixels);
    drawTransformed({picture, isOpaque}, turnedToPicture(size, document.rotationAngle, size), frame, frame,
                    target, isOpaque ? StretchMode::Replace : StretchMode::Over);
    if (isOpaque) next.markOpaque();
}

}  // namespace

float fillFactor(IntSize frame, float angle) noexcept {
    // The turn goes against the angle here: the farther a corner lies from the turned edge, the more the
    // picture must grow to reach it.
    const AffineMap turn = turnedAbout(turningPoint(frame), -double(angle) * kRadiansPerDegree);
    const double width = frame.width, height = frame.height;
    const PlanePoint topLeft = turn({0, 0}), topRight = turn({width, 0}), bottomLeft = turn({0, height});
    const auto byHeight = float(2 * distanceToLine(topLeft, topRight, {0, 0}) / height + 1);
    const auto byWidth = float(2 * distanceToLine(topLeft, bottomLeft, {0, height}) / width + 1);
    return std::max(byHeight, byWidth);
}

AffineMap freeRotation(IntSize frame, float angle) noexcept {
    const double factor = double(fillFactor(frame, angle));
    return AffineMap::translation((1 - factor) * frame.width * 0.5, (1 - factor) * frame.height * 0.5)
        .after(AffineMap::scaling(factor, factor))
        .after(turnedAbout(turningPoint(frame), double(angle) * kRadiansPerDegree));
}

AffineMap turnedToPicture(IntSize frame, float angle, IntSize picture) noexcept {
    return AffineMap::scaling(double(picture.width) / frame.width, double(picture.height) / frame.height)
        .after(freeRotation(frame, angle).inverse());
}

void applyRotation(ImageDocument& document) noexcept {
    if (document.isEmpty()) return;
    PixelSurface next = document.prepareState(document.width(), document.height());
    if (next.isNull()) return;
    drawTurned(document, next);
    document.pushState(std::move(next));
}

}  // namespace orvane
