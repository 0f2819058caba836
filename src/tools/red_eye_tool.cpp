#include "tools/red_eye_tool.h"

#include "tools/bounded_point.h"
#include "tools/image_commit.h"
#include "tools/red_eye_correction.h"

namespace orvane {

void RedEyeTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!holdsFrame()) return;
    const IntRect eye = frame();
    const IntPoint first = bounded(toImage({eye.x, eye.y}));
    const IntPoint last = bounded(toImage({eye.right(), eye.bottom()}));
    drawIntoImage(document, [&](MutablePixelView image) {
        correctRedEye(image, {first.x, first.y, last.x - first.x, last.y - first.y});
    });
    Reset();
}

}  // namespace orvane
