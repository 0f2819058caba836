#include <orvane/cursor_picture.h>

#include <array>
#include <cstddef>
#include <iterator>
#include <span>

#include "platform/graphics/shapes.h"
#include "platform/graphics/stretch.h"

namespace orvane {
namespace {

constexpr int kSide = 32;
constexpr int kScale = 4;  // the pictures are drawn this much larger, so that they come out smooth
constexpr int kLargeSide = kSide * kScale;

constexpr Argb kOutline = 0xFF101010u, kPaper = 0xFFFFFFFFu, kWood = 0xFFE8B060u, kMetal = 0xFFB8C0C8u,
               kPaint = 0xFFD83020u;
constexpr float kOutlineWidth = 6.0f;

void outlined(MutablePixelView target, Argb colour, std::span<const IntPoint> corners) {
    fillPolygon(target, SolidBrush{colour}, corners);
    drawPolygon(target, Pen(kOutline, kOutlineWidth), corners);
}

void outlined(MutablePixelView target, Argb colour, IntRect box) {
    fillRectangle(target, SolidBrush{colour}, box);
    drawRectangle(target, Pen(kOutline, kOutlineWidth), box);
}

// An open hand: first its outline, then the hand itself, for the fingers run into the palm.
void drawHand(MutablePixelView target) {
    constexpr IntRect kFingers[] = {{30, 34, 14, 56}, {47, 20, 14, 70}, {64, 18, 14, 70}, {81, 28, 14, 60}};
    constexpr IntPoint kThumb[] = {{34, 96}, {10, 66}, {18, 58}, {40, 72}};
    constexpr IntRect kPalm{30, 64, 65, 48};
    const auto draw = [&](const SolidBrush& brush, int margin) {
        const auto grown = [margin](IntRect r) {
            return IntRect{r.x - margin, r.y - margin, r.width + 2 * margin, r.height + 2 * margin};
        };
        for (const IntRect& finger : kFingers) {
            fillRectangle(target, brush, grown(finger));
            fillEllipse(target, brush, grown({finger.x, finger.y - 7, 14, 14}));
        }
        fillEllipse(target, brush, grown(kPalm));
        fillRectangle(target, brush, grown({kPalm.x, kPalm.y, kPalm.width, 24}));
        fillPolygon(target, brush, kThumb);
        if (margin > 0) drawPolygon(target, Pen(kOutline, 2.0f * float(margin)), kThumb);
    };
    draw({kOutline}, 5);
    draw({kPaper}, 0);
}

void drawBrush(MutablePixelView target) {
    constexpr IntPoint kHandle[] = {{46, 70}, {102, 8}, {120, 26}, {58, 82}};
    constexpr IntPoint kFerrule[] = {{26, 84}, {42, 66}, {62, 86}, {44, 102}};
    constexpr IntPoint kBristles[] = {{8, 120}, {12, 96}, {26, 84}, {44, 102}, {32, 116}};
    outlined(target, kWood, kHandle);
    outlined(target, kMetal, kFerrule);
    outlined(target, kPaint, kBristles);
}

void drawPencil(MutablePixelView target) {
    constexpr IntPoint kBody[] = {{20, 90}, {94, 16}, {112, 34}, {38, 108}};
    constexpr IntPoint kEnd[] = {{94, 16}, {102, 8}, {120, 26}, {112, 34}};
    constexpr IntPoint kTip[] = {{8, 120}, {20, 90}, {38, 108}};
    constexpr IntPoint kLead[] = {{8, 120}, {13, 108}, {20, 115}};
    outlined(target, kWood, kBody);
    outlined(target, kPaint, kEnd);
    outlined(target, kPaper, kTip);
    outlined(target, kOutline, kLead);
}

// The dots fall where the tool's do: 5 pixels right of the pointer and 9 below it.
void drawSpray(MutablePixelView target) {
    constexpr IntPoint kDots[] = {{20, 36}, {8, 28}, {8, 44}, {20, 20}, {20, 52}, {32, 28}, {32, 44}};
    for (const IntPoint& dot : kDots) fillRectangle(target, SolidBrush{kPaint}, {dot.x - 3, dot.y - 3, 7, 7});
    outlined(target, kMetal, {54, 28, 20, 14});
    outlined(target, kPaper, {62, 42, 40, 14});
    outlined(target, kPaint, {54, 56, 56, 64});
    fillRectangle(target, SolidBrush{kPaper}, {57, 74, 50, 20});
}

struct Drawing {
    CursorId cursor;
    IntPoint hotSpot;
    void (*draw)(MutablePixelView);
};
constexpr Drawing kDrawings[] = {
    {CursorId::Handle, {16, 16}, drawHand},
    {CursorId::Brush, {2, 30}, drawBrush},
    {CursorId::Pencil, {2, 30}, drawPencil},
    {CursorId::Spray, {0, 0}, drawSpray},
};

/// All four pictures.
class CursorPictures {
 public:
    CursorPictures() noexcept {
        std::array<Argb, std::size_t{kLargeSide} * kLargeSide> large;
        for (std::size_t i = 0; i < pictures_.size(); ++i) {
            large.fill(0);
            kDrawings[i].draw({large.data(), kLargeSide, kLargeSide, kLargeSide});
            drawStretched({PixelView{large.data(), kLargeSide, kLargeSide, kLargeSide}}, {0, 0, kSide, kSide},
                          {pictures_[i].data(), kSide, kSide, kSide}, StretchMode::Replace);
        }
    }
    [[nodiscard]] PixelView at(std::size_t index) const noexcept {
        return {pictures_[index].data(), kSide, kSide, kSide};
    }

 private:
    std::array<std::array<Argb, std::size_t{kSide} * kSide>, std::size(kDrawings)> pictures_;
};

}  // namespace

CursorPicture cursorPicture(CursorId cursor) noexcept {
    static const CursorPictures pictures;
    for (std::size_t i = 0; i < std::size(kDrawings); ++i) {
        if (kDrawings[i].cursor == cursor) return {pictures.at(i), kDrawings[i].hotSpot};
    }
    return {};
}

}  // namespace orvane
