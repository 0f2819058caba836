#include "view/rotation_preview.h"

#include <algorithm>
#include <cmath>

#include "geometry/free_rotation.h"
#include "platform/graphics/fill.h"
#include "platform/graphics/stretch.h"
#include "platform/graphics/transform.h"

namespace orvane {
namespace {

// The copy's sizes are this factor apart: the turned picture is never more than half a step larger or smaller
// than the copy, which neither blurs nor aliases visibly.
constexpr double kSizeStep = 1.2;

// From here on the picture itself serves as well as a copy.
constexpr double kFullSize = 0.9;

// The size to which a picture shown in a frame of this size is averaged, or its own size where averaging is
// not worth while.
IntSize averagedSize(IntSize picture, IntSize frame, float factor) noexcept {
    const double steps = std::round(std::log(double(factor)) / std::log(kSizeStep));
    const double scale = std::pow(kSizeStep, steps);
    const double width = frame.width * scale, height = frame.height * scale;
    if (double(frame.width) * double(factor) >= kFullSize * picture.width ||
        double(frame.height) * double(factor) >= kFullSize * picture.height || width >= picture.width ||
        height >= picture.height) {
        return picture;
    }
    return {std::max(int(width), 1), std::max(int(height), 1)};
}

struct Bounds {
    double left, top, right, bottom;
};

// What the map makes of the rectangle lies inside.
Bounds boundsOf(const AffineMap& map, const IntRect& rect) noexcept {
    const double left = rect.x, right = left + rect.width, top = rect.y, bottom = top + rect.height;
    const PlanePoint corners[] = {map({left, top}), map({right, top}), map({left, bottom}),
                                  map({right, bottom})};
    const auto [xMin, xMax] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [yMin, yMax] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    return {xMin, yMin, xMax, yMax};
}

// The bounds of every rectangle of this size, turned about its middle and up to one step smaller or larger.
Bounds boundsOfAllTurns(const Bounds& bounds) noexcept {
    const double x = (bounds.left + bounds.right) / 2, y = (bounds.top + bounds.bottom) / 2;
    const double radius = kSizeStep * std::hypot(bounds.right - x, bounds.bottom - y);
    return {x - radius, y - radius, x + radius, y + radius};
}

// The pixels from which points inside the bounds are interpolated.
IntRect pixelsUnder(const Bounds& bounds, IntSize size) noexcept {
    const auto cut = [](double position, int length) {
        return int(std::clamp(position, 0.0, double(length)));
    };
    const int left = cut(std::floor(bounds.left - 1), size.width);
    const int top = cut(std::floor(bounds.top - 1), size.height);
    return {left, top, cut(std::ceil(bounds.right + 1), size.width) - left,
            cut(std::ceil(bounds.bottom + 1), size.height) - top};
}

bool covers(const IntRect& outer, const IntRect& inner) noexcept { return outer.intersected(inner) == inner; }

}  // namespace

void RotationPreview::draw(const PixelSurface& picture, float angle, IntRect placement,
                           MutablePixelView target) noexcept {
    const IntRect visible = clippedTo({target.width, target.height}, placement);
    if (visible.isEmpty()) return;
    const IntSize frame{placement.width, placement.height};
    const IntSize averaged =
        averagedSize({picture.width(), picture.height()}, frame, fillFactor(frame, angle));
    const IntRect part{int(std::int64_t{visible.x} - placement.x), int(std::int64_t{visible.y} - placement.y),
                       visible.width, visible.height};
    const AffineMap toAveraged = turnedToPicture(frame, angle, averaged);
    const bool isOpaque = picture.isOpaque();
    if (averaged.width < picture.width() && average(picture, averaged, toAveraged, part)) {
        const AffineMap toCopy = AffineMap::translation(-covered_.x, -covered_.y).after(toAveraged);
        drawTransformed({copy_.read(), isOpaque}, toCopy, placement, visible, target, StretchMode::Over);
        return;
    }
    drawTransformed({picture.read(), isOpaque},
                    turnedToPicture(frame, angle, {picture.width(), picture.height()}), placement, visible,
                    target, StretchMode::Over);
}

bool RotationPreview::average(const PixelSurface& picture, IntSize averaged, const AffineMap& toAveraged,
                              IntRect part) noexcept {
    const Bounds bounds = boundsOf(toAveraged, part);
    const bool isSame = contentId_ == picture.contentId() && averaged_ == averaged;
    if (isSame && covers(covered_, pixelsUnder(bounds, averaged))) return true;

    release();
    const IntRect covered = pixelsUnder(boundsOfAllTurns(bounds), averaged);
    copy_ = PixelSurface::create(covered.width, covered.height);
    const MutablePixelView pixels = copy_.overwrite();
    if (!pixels) return false;
    drawStretched({picture.read(), picture.isOpaque()},
                  {-covered.x, -covered.y, averaged.width, averaged.height}, pixels, StretchMode::Replace);
    contentId_ = picture.contentId();
    averaged_ = averaged;
    covered_ = covered;
    return true;
}

}  // namespace orvane
