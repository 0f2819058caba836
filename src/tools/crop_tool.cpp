#include "tools/crop_tool.h"

#include "geometry/crop.h"
#include "tools/bounded_point.h"

namespace orvane {

void CropTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (!holdsFrame()) return;
    const IntRect kept = frame();
    const IntPoint first = bounded(toImage({kept.x, kept.y}));
    const IntPoint last = bounded(toImage({kept.right(), kept.bottom()}));
    cropToRectangle(document, {first.x, first.y, last.x - first.x + 1, last.y - first.y + 1});
    document.view.centreView();
    document.updateOverflow();
    Reset();
}

}  // namespace orvane
