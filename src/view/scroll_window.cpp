#include "view/scroll_window.h"

#include <cstdlib>

#include "base/truncate.h"
#include "platform/graphics/fill.h"
#include "platform/graphics/shapes.h"
#include "platform/graphics/stretch.h"
#include "tools/bounded_point.h"

namespace orvane {
namespace {

constexpr int kLongSide = 108;  // of the thumbnail
constexpr int kMargin = 20;     // of the panel around it
constexpr int kCornerRadius = 8;

// Sizes of panel and thumbnail for an image of this size.
struct Layout {
    explicit Layout(IntSize image) noexcept {
        const auto shortSide = [](int length, int longLength) {
            return int(std::int64_t{length} * kLongSide / longLength);
        };
        constexpr int kNarrow = 95;  // a narrower thumbnail leaves no room for the caption
        if (image.width > image.height) {
            thumbnail = {kLongSide, shortSide(image.height, image.width)};
            panelWidth = kLongSide + kMargin;
        } else {
            thumbnail = {shortSide(image.width, image.height), kLongSide};
            panelWidth = (thumbnail.width < kNarrow ? kNarrow : thumbnail.width) + kMargin;
        }
        panelHeight = thumbnail.height + 2 * kMargin;
    }
    IntSize thumbnail;
    int panelWidth = 0, panelHeight = 0;
};

}  // namespace

void ScrollWindow::setClientSize(IntSize client) noexcept {
    client_ = client;
    viewRect_.bounds = {0, 0, client.width, client.height};
}

void ScrollWindow::setViewRect(IntPoint corner, IntPoint opposite) noexcept {
    if (dragging_) return;
    viewRect_.corner1 = corner;
    viewRect_.corner2 = opposite;
    viewRect_.placed = true;
}

void ScrollWindow::draw(const PixelSurface& image, double zoom, MutablePixelView target) noexcept {
    if (!visible || image.isNull()) return;
    layOut({image.width(), image.height()});
    drawPanel(target);
    drawThumbnail(image, target);
    caption_.draw(zoom, {panel_.x + panel_.width / 2, thumbnail_.bottom() + 4}, target);
    drawCloseButton(target);
    if (!dragging_) placeViewRect();
    keepInThumbnail();
    viewRect_.Draw(target);
}

void ScrollWindow::layOut(IntSize image) noexcept {
    constexpr int kFromRight = 1, kFromBottom = 11;
    const Layout layout(image);
    image_ = image;
    panel_ = {client_.width - layout.panelWidth - kFromRight,
              client_.height - layout.panelHeight - kFromBottom, layout.panelWidth, layout.panelHeight};
    thumbnail_ = {panel_.x + panel_.width / 2 - layout.thumbnail.width / 2, panel_.y + kMargin,
                  layout.thumbnail.width, layout.thumbnail.height};
    closeButton_ = {client_.width - 20, panel_.y + 5, 10, 10};
    viewRect_.limit = thumbnail_;
}

void ScrollWindow::drawPanel(MutablePixelView target) const noexcept {
    constexpr int kDiameter = 2 * kCornerRadius;
    constexpr float kQuarter = 90.0f;
    const Brush fill = SolidBrush{colour};
    const IntRect strip{panel_.x - kCornerRadius, panel_.y + kCornerRadius, kCornerRadius,
                        panel_.height - 15};
    fillRectangle(target, fill, panel_);
    fillRectangle(target, fill, strip);
    fillPie(target, fill, {strip.x, panel_.y, kDiameter, kDiameter}, 180.0f, kQuarter);

    // The lower corner is half a pixel higher than the strip leaves room for: where both would be painted, a
    // translucent colour would show a seam.
    const IntRect corner = clippedTo({target.width, target.height}, {strip.x, strip.bottom(), kCornerRadius,
                                                                     panel_.bottom() - strip.bottom()});
    if (corner.isEmpty()) return;
    fillPie(subView(target, corner), fill,
            {strip.x - corner.x, panel_.bottom() - 15 - corner.y, kDiameter, 15}, 90.0f, kQuarter);
}

void ScrollWindow::drawThumbnail(const PixelSurface& image, MutablePixelView target) noexcept {
    const IntSize size{thumbnail_.width, thumbnail_.height};
    const bool isCurrent = thumbnailOf_ == image.contentId() && thumbnailPixels_.width() == size.width &&
                           thumbnailPixels_.height() == size.height;
    if (!isCurrent) {
        thumbnailPixels_ = PixelSurface::create(size.width, size.height);
        drawStretched({image.read(), image.isOpaque()}, {0, 0, size.width, size.height},
                      thumbnailPixels_.overwrite(), StretchMode::Replace);
        thumbnailOf_ = image.contentId();
    }
    // Without memory for it the thumbnail is drawn from the image each time.
    const PixelSurface& source = thumbnailPixels_.isNull() ? image : thumbnailPixels_;
    drawStretched({source.read(), image.isOpaque()}, thumbnail_, target, StretchMode::Over);
}

void ScrollWindow::drawCloseButton(MutablePixelView target) const noexcept {
    const IntRect& b = closeButton_;
    const Pen pen(0xFFD3D3D3u);
    constexpr int kInset = 3;
    fillRectangle(target, SolidBrush{0xFF8B0000u}, b);
    drawRectangle(target, pen, b);
    drawLine(target, pen, {b.x + kInset, b.y + kInset}, {b.right() - kInset, b.bottom() - kInset});
    drawLine(target, pen, {b.right() - kInset, b.y + kInset}, {b.x + kInset, b.bottom() - kInset});
}

/// From image pixels to the thumbnail. The size of the rectangle is remembered: while the view scrolls, it
/// would otherwise flicker between two values.
void ScrollWindow::placeViewRect() noexcept {
    const double scaleX = double(thumbnail_.width) / image_.width;
    const double scaleY = double(thumbnail_.height) / image_.height;
    const auto onThumbnail = [&](IntPoint p) {
        return bounded(
            {truncateToInt(p.x * scaleX + thumbnail_.x), truncateToInt(p.y * scaleY + thumbnail_.y)});
    };
    const IntPoint first = onThumbnail(viewRect_.corner1), last = onThumbnail(viewRect_.corner2);
    const IntSize size{last.x - first.x, last.y - first.y};
    if (std::abs(size.width - viewSize_.width) > 1 || std::abs(size.height - viewSize_.height) > 1) {
        viewSize_ = size;
    }
    viewRect_.corner1 = first;
    viewRect_.corner2 = {first.x + viewSize_.width, first.y + viewSize_.height};
}

void ScrollWindow::keepInThumbnail() noexcept {
    const IntRect frame = viewRect_.frame();
    if (frame.x < thumbnail_.x) viewRect_.corner1.x = thumbnail_.x;
    if (frame.right() > thumbnail_.right()) viewRect_.corner2.x = thumbnail_.right();
}

bool ScrollWindow::press(IntPoint point) noexcept {
    if (closeButtonHit(point)) return false;
    viewRect_.OnMouseDown(MouseButton::Left, point);
    viewRect_.activeHandle = kUnset;
    dragging_ = viewRect_.frame().contains(point);
    // Near its edges too the rectangle is moved, never resized.
    if (dragging_) viewRect_.moveAnchor = bounded(point);
    return dragging_;
}

bool ScrollWindow::drag(IntPoint mouse) noexcept { return viewRect_.OnMouseMove(mouse); }

IntPoint ScrollWindow::targetPoint() const noexcept {
    const IntRect frame = viewRect_.frame();
    return {truncateToCoordinate(double(image_.width) / thumbnail_.width * (frame.x - thumbnail_.x)),
            truncateToCoordinate(double(image_.height) / thumbnail_.height * (frame.y - thumbnail_.y))};
}

bool ScrollWindow::release(IntPoint point) noexcept {
    const bool closes = closeButtonHit(point);
    if (closes) visible = false;
    viewRect_.OnMouseUp(point);
    dragging_ = false;
    return closes;
}

}  // namespace orvane
