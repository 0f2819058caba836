#include "view/rounded_panel.h"

#include "platform/graphics/shapes.h"

namespace orvane {
namespace {

constexpr int kRadius = 6, kBox = 2 * kRadius;
constexpr float kQuarter = 90.0f;
constexpr float kOutlineWidth = 3.0f;

struct Corner {
    IntRect box;
    float startAngle;
};

struct Corners {
    explicit Corners(const IntRect& r) noexcept
        : all{{{r.x, r.y, kBox, kBox}, 180.0f},
              {{r.right() - kBox, r.y, kBox, kBox}, 270.0f},
              {{r.right() - kBox, r.bottom() - kBox, kBox, kBox}, 0.0f},
              {{r.x, r.bottom() - kBox, kBox, kBox}, 90.0f}} {}
    Corner all[4];
};

void fillPanel(MutablePixelView target, const IntRect& r, const Brush& brush) noexcept {
    fillRectangle(target, brush, {r.x + kRadius, r.y, r.width - kBox, kRadius});
    fillRectangle(target, brush, {r.x, r.y + kRadius, r.width, r.height - kBox});
    fillRectangle(target, brush, {r.x + kRadius, r.bottom() - kRadius, r.width - kBox, kRadius});
    for (const Corner& corner : Corners(r).all) {
        fillPie(target, brush, corner.box, corner.startAngle, kQuarter);
    }
}

void outlinePanel(MutablePixelView target, const IntRect& r, const Pen& pen) noexcept {
    // The sides reach one pixel into the corners: blunt ends that merely met would leave a seam.
    const int left = r.x + kRadius - 1, right = r.right() - kRadius + 1;
    const int top = r.y + kRadius - 1, bottom = r.bottom() - kRadius + 1;
    drawLine(target, pen, {left, r.y}, {right, r.y});
    drawLine(target, pen, {r.right(), top}, {r.right(), bottom});
    drawLine(target, pen, {left, r.bottom()}, {right, r.bottom()});
    drawLine(target, pen, {r.x, top}, {r.x, bottom});
    for (const Corner& corner : Corners(r).all) {
        drawArc(target, pen, corner.box, corner.startAngle, kQuarter);
    }
}

}  // namespace

void drawRoundedPanel(MutablePixelView target, IntRect area, Argb fill) noexcept {
    fillPanel(target, area, SolidBrush{fill});
    outlinePanel(target, area, Pen(kPanelInk, kOutlineWidth));
}

}  // namespace orvane
