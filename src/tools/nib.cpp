#include "tools/nib.h"

#include <array>

#include "platform/graphics/shapes.h"
#include "tools/grab_handle.h"

namespace orvane {
namespace {

struct Bar {
    IntPoint begin, end;
};

// The ends of the bars of size 1, by shape.
constexpr Bar kBars[] = {{{-1, 0}, {1, 0}}, {{-1, -1}, {1, 1}}, {{0, -1}, {0, 1}}, {{1, -1}, {-1, 1}}};

Bar barAround(const Nib& nib, IntPoint centre) noexcept {
    const Bar& unit = kBars[static_cast<int>(nib.shape)];
    return {{centre.x + nib.size * unit.begin.x, centre.y + nib.size * unit.begin.y},
            {centre.x + nib.size * unit.end.x, centre.y + nib.size * unit.end.y}};
}

Pen dottedPen() noexcept {
    Pen pen(kBlack);
    pen.dash = {{1.0f, 1.0f}, 2};
    return pen;
}

}  // namespace

void drawNibBar(MutablePixelView target, const Nib& nib, IntPoint centre) noexcept {
    const Bar bar = barAround(nib, centre);
    drawLine(target, Pen(nib.colour), bar.begin, bar.end);
}

void drawNibSweep(MutablePixelView target, const Nib& nib, IntPoint from, IntPoint to) noexcept {
    drawLine(target, Pen(nib.colour), from, to);
    const Bar first = barAround(nib, from), last = barAround(nib, to);
    const std::array<IntPoint, 4> swept{first.begin, first.end, last.end, last.begin};
    fillPolygon(target, SolidBrush{nib.colour}, swept);
}

void drawDottedCross(MutablePixelView target, IntPoint centre, int reach, CrossLines lines) noexcept {
    const auto [x, y] = centre;
    const Pen pen = dottedPen();
    if (lines.vertical) drawLine(target, pen, {x, y - reach}, {x, y + reach + 1});
    if (lines.horizontal) drawLine(target, pen, {x - reach, y}, {x + reach + 1, y});
}

}  // namespace orvane
