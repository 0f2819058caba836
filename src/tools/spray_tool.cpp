#include "tools/spray_tool.h"

#include <new>

#include "base/random_stream.h"
#include "base/truncate.h"
#include "tools/image_commit.h"
#include "tools/mouse_range.h"

namespace orvane {
namespace {

constexpr double kDotsPerSquaredRadius = 0.0981747703125;
constexpr double kDiameterPerDraw = 6.103701895199438e-05;  // takes the largest draw to twice the radius
constexpr IntPoint kNozzle{5, 9};                           // where the spray leaves the cursor's picture

// A dot of the disc around (radius, radius), by drawing from the square around it until one fits.
IntPoint drawDot(RandomStream& stream, int radius) noexcept {
    for (;;) {
        const int u = truncateToInt(stream.next() * radius * kDiameterPerDraw);
        const int v = truncateToInt(stream.next() * radius * kDiameterPerDraw);
        const int x = u - radius, y = v - radius;
        if (x * x + y * y <= radius * radius) return {u, v};
    }
}

unsigned blendedChannel(unsigned colour, unsigned old, unsigned alpha) noexcept {
    const int difference = static_cast<int>(colour) - static_cast<int>(old);
    return unsigned(truncateToInt(difference * static_cast<int>(alpha) * 0.00392156862745098 + old));
}

Argb blended(Argb colour, Argb old) noexcept {
    const unsigned alpha = alphaOf(colour);
    if (alpha == 255) return colour;
    return makeOpaque(blendedChannel(redOf(colour), redOf(old), alpha),
                      blendedChannel(greenOf(colour), greenOf(old), alpha),
                      blendedChannel(blueOf(colour), blueOf(old), alpha));
}

bool contains(MutablePixelView view, IntPoint point) noexcept {
    return IntRect{0, 0, view.width, view.height}.contains(point);
}

}  // namespace

void SprayTool::Reset() noexcept {
    PaintTool::Reset();
    dots_ = std::vector<IntPoint>();
    centre_ = kUnsetPoint;
}

void SprayTool::OnMouseDown(MouseButton /*button*/, IntPoint mouse) noexcept {
    centre_ = withinMouseRange(mouse);
}

bool SprayTool::OnMouseMove(IntPoint mouse) noexcept {
    centre_ = withinMouseRange(mouse);
    return true;
}

void SprayTool::OnMouseUp(IntPoint /*mouse*/) noexcept { centre_ = kUnsetPoint; }

void SprayTool::burst() noexcept {
    const int radius = freehand_.sprayRadius;
    const int count = truncateToInt(radius * radius * kDotsPerSquaredRadius);
    const IntPoint corner{centre_.x - radius + kNozzle.x, centre_.y - radius + kNozzle.y};
    RandomStream stream = SharedRandomStream::take();
    try {
        for (int i = 0; i < count; ++i) {
            const IntPoint dot = drawDot(stream, radius);
            dots_.push_back({corner.x + dot.x, corner.y + dot.y});
        }
    } catch (const std::bad_alloc&) {
        // The dots so far are kept.
    }
    SharedRandomStream::giveBack(stream);
}

void SprayTool::Draw(MutablePixelView view) noexcept {
    for (const IntPoint dot : dots_) {
        if (contains(view, dot)) view.at(dot.x, dot.y) = pen.colour | 0xFF000000u;
    }
}

void SprayTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (dots_.empty()) {
        document.pushSnapshot();
        return;
    }
    drawIntoImage(document, [&](MutablePixelView image) { blendDots(image, toImage); });
    dots_ = std::vector<IntPoint>();
}

void SprayTool::blendDots(MutablePixelView image, PointMap toImage) const noexcept {
    for (const IntPoint dot : dots_) {
        const IntPoint at = toImage(dot);
        if (!contains(image, at)) continue;
        Argb& pixel = image.at(at.x, at.y);
        pixel = blended(pen.colour, pixel);
    }
}

}  // namespace orvane
