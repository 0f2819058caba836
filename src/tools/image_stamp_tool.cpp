#include "tools/image_stamp_tool.h"

#include <algorithm>
#include <utility>

#include "platform/graphics/stretch.h"
#include "tools/bounded_point.h"
#include "tools/image_commit.h"
#include "tools/stamp_pattern.h"

namespace orvane {
namespace {

// The picture lies this far inside its box, and the box is that much larger, and one pixel more.
constexpr int kInset = 2;
constexpr int kBoxMargin = 3;

IntPoint insideWindow(IntPoint point) { return {std::max(point.x, 1), std::max(point.y, 1)}; }

// From one corner of a box, mapped, to the other: never inside out.
IntSize between(IntPoint from, IntPoint to) {
    return {std::max(to.x - from.x, 0), std::max(to.y - from.y, 0)};
}

}  // namespace

void ImageStampTool::setPicture(PixelSurface picture) noexcept {
    picture_ = std::move(picture);
    holdsPicture_ = true;
    applyPattern();
    box.width = picture_.width() + kBoxMargin;
    box.height = picture_.height() + kBoxMargin;
}

void ImageStampTool::applyPattern() noexcept {
    if (const MutablePixelView pixels = picture_.write()) applyStampPattern(pixels, settings_);
}

void ImageStampTool::place(PointMap imageToWindow, bool atActualSize) noexcept {
    if (atActualSize) {
        const IntPoint corner = insideWindow(imageToWindow({0, 0}));
        box.x = corner.x;
        box.y = corner.y;
        return;
    }
    const IntPoint from = imageToWindow({box.x, box.y});
    const IntSize size = between(from, imageToWindow({box.x + box.width, box.y + box.height}));
    const IntPoint corner = insideWindow(from);
    box = {corner.x, corner.y, size.width, size.height};
}

void ImageStampTool::Reset() noexcept {
    TextBoxTool::Reset();
    picture_ = {};
    holdsPicture_ = false;
}

void ImageStampTool::drawInto(MutablePixelView target, IntRect area) const noexcept {
    if (picture_.isNull()) return;
    drawStretched({picture_.read(), picture_.isOpaque()}, area, target, StretchMode::Over);
}

void ImageStampTool::Draw(MutablePixelView view) noexcept {
    if (picture_.isNull()) return;
    drawInto(view, {box.x + kInset, box.y + kInset, picture_.width(), picture_.height()});
    drawFrame(view);
}

void ImageStampTool::DrawScaled(MutablePixelView view) noexcept {
    if (picture_.isNull()) return;
    drawInto(view, {box.x + kInset, box.y + kInset, box.width, box.height});
    drawFrame(view);
}

void ImageStampTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!holdsPicture_) return;
    const IntPoint corner = toImage({box.x, box.y});
    drawIntoImage(document, [&](MutablePixelView image) {
        drawInto(image, {corner.x + kInset, corner.y + kInset, picture_.width(), picture_.height()});
    });
    Reset();
}

void ImageStampTool::reproject(PointMap toNewZoom) noexcept {
    const IntPoint from = toNewZoom({box.x, box.y});
    const IntSize size = between(from, toNewZoom({box.x + box.width, box.y + box.height}));
    box = {from.x, from.y, size.width, size.height};
}

}  // namespace orvane
