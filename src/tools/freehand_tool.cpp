#include "tools/freehand_tool.h"

#include <new>

#include "tools/mouse_range.h"

namespace orvane {

void FreehandTool::Reset() noexcept {
    PaintTool::Reset();
    points_ = std::vector<IntPoint>();
}

bool FreehandTool::AppendPoint(IntPoint point) noexcept {
    point = withinMouseRange(point);
    if (!points_.empty() && points_.back() == point) return false;
    try {
        points_.push_back(point);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

}  // namespace orvane
