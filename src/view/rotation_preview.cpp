#include "view/rotation_preview.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geometry/free_rotation.h"
#include "platform/graphics/fill.h"
#include "platform/graphics/stretch.h"
#include "platform/graphics/transform.h"

namespace orvane {
namespace {

// The copies' sizes are this factor apart: the turned picture is never more than half a step larger or
// smaller than its copy, which neither blurs nor aliases visibly.
constexpr double kSizeStep = 1.2;

// From this scale on the picture itself serves as well as a copy.
constexpr double kFullSize = 0.9;

int stepOf(double enlargement) noexcept {
    return int(std::lround(std::log(enlargement) / std::log(kSizeStep)));
}

bool isShownSmall(IntSize picture, IntSize frame, double enlargement) noexcept {
    return frame.width * enlargement < kFullSize * picture.width &&
           frame.height * enlargement < kFullSize * picture.height;
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

IntSize sizeOf(const PixelSurface& surface) noexcept { return {surface.width(), surface.height()}; }

}  // namespace

void RotationPreview::draw(const PixelSurface& picture, float angle, IntRect placement,
                           MutablePixelView target) noexcept {
    const IntRect visible = clippedTo({target.width, target.height}, placement);
    if (visible.isEmpty()) return;
    const IntRect part{int(std::int64_t{visible.x} - placement.x), int(std::int64_t{visible.y} - placement.y),
                       visible.width, visible.height};
    const Source source = sourceFor(picture, angle, {placement.width, placement.height}, part);
    drawTransformed({source.pixels->read(), picture.isOpaque()}, source.fromFrame, placement, visible, target,
                    StretchMode::Over);
}

RotationPreview::Source RotationPreview::sourceFor(const PixelSurface& picture, float angle, IntSize frame,
                                                   IntRect part) noexcept {
    if (contentId_ != picture.contentId() || !(frame_ == frame)) release();
    contentId_ = picture.contentId();
    frame_ = frame;
    const auto enlargement = double(fillFactor(frame, angle));
    if (isShownSmall(sizeOf(picture), frame, enlargement)) {
        const int step = stepOf(enlargement);
        const double scale = std::pow(kSizeStep, step);
        const IntSize whole{std::max(int(frame.width * scale), 1), std::max(int(frame.height * scale), 1)};
        const AffineMap fromFrame = turnedToPicture(frame, angle, whole);
        const Bounds bounds = boundsOf(fromFrame, part);
        Copy& copy = copies_[std::size_t(step) % kCopies];
        if (update(copy, picture, whole, pixelsUnder(bounds, whole),
                   pixelsUnder(boundsOfAllTurns(bounds), whole))) {
            return {&copy.pixels, AffineMap::translation(-copy.covered.x, -copy.covered.y).after(fromFrame)};
        }
    }
    return {&picture, turnedToPicture(frame, angle, sizeOf(picture))};
}

bool RotationPreview::update(Copy& copy, const PixelSurface& picture, IntSize whole, IntRect needed,
                             IntRect likely) noexcept {
    if (copy.whole == whole && covers(copy.covered, needed)) return true;
    copy = {};  // its memory may serve the new one
    PixelSurface pixels = PixelSurface::create(likely.width, likely.height);
    const MutablePixelView target = pixels.overwrite();
    if (!target) return false;
    drawStretched({picture.read(), picture.isOpaque()}, {-likely.x, -likely.y, whole.width, whole.height},
                  target, StretchMode::Replace);
    copy = {std::move(pixels), whole, likely};
    return true;
}

}  // namespace orvane
