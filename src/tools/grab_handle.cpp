#include "tools/grab_handle.h"

#include "platform/graphics/shapes.h"

namespace orvane {

void drawHandleSquare(MutablePixelView view, IntRect square) noexcept {
    drawRectangle(view, Pen(kBlack), square);
    drawRectangle(view, Pen(kWhite), {square.x - 1, square.y - 1, square.width + 2, square.height + 2});
}

void drawGrabHandle(MutablePixelView view, IntPoint centre, int radius) noexcept {
    drawHandleSquare(view, {centre.x - radius, centre.y - radius, 2 * radius + 1, 2 * radius + 1});
}

}  // namespace orvane
