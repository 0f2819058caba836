#include "tools/pencil_tool.h"

#include <algorithm>
#include <new>

#include "platform/graphics/shapes.h"
#include "tools/image_commit.h"

namespace orvane {
namespace {

void drawMapped(ImageDocument& document, const Pen& pen, std::vector<IntPoint> points, PointMap toImage) {
    std::transform(points.begin(), points.end(), points.begin(), toImage);
    drawIntoImage(document, [&](MutablePixelView image) { drawLines(image, pen, points); });
}

}  // namespace

void PencilTool::Draw(MutablePixelView view) noexcept {
    if (const std::optional<Pen> current = pen.current()) drawLines(view, *current, points());
}

void PencilTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    const std::optional<Pen> current = pen.current();
    if (current && points().size() == 1) {
        document.pushSnapshot();
    } else if (current && points().size() > 1) {
        try {
            drawMapped(document, *current, points(), toImage);
        } catch (const std::bad_alloc&) {
            // No memory for the points: the trail is dropped, the image stays as it is.
        }
    }
    Reset();
}

}  // namespace orvane
