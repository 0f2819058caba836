#pragma once

#include "tools/point_list_tool.h"

namespace orvane {

/// Mode 13: a chain of cubic Bezier segments, with the pen.
///
/// A click places alternately a control point and the anchor that it leads to; an anchor brings along its
/// other control, mirrored through it:
///
///     index   0    1    2      3    4    5      6 ...
///             c0   c1   mirror c2   c3   mirror c4
///                  ^ anchor         ^ anchor: i % 3 == 1
///
/// The chain starts at index 1. Dragging an anchor takes its controls along; dragging a control keeps its
/// partner mirrored. There is no deleting. A commit needs two segments.
class BezierTool final : public PointListTool {
 public:
    using PointListTool::PointListTool;

    void Reset() noexcept override;
    void OnMouseDown(MouseButton button, IntPoint mouse) noexcept override;
    bool AppendPoint(IntPoint point) noexcept override;

    int bezierCount = kNoChain;  ///< points of the chain, counted from index 1: -2, then 1, 4, 7, ...

 protected:
    void drawShape(MutablePixelView target, std::span<const IntPoint> points) const noexcept override;
    [[nodiscard]] std::size_t fewestShown() const noexcept override { return 6; }
    [[nodiscard]] bool isComplete() const noexcept override;
    void moveVertex(std::size_t index, IntPoint to) noexcept override;
    /// Guide lines from control to control, the controls as yellow dots, the anchors as grab handles.
    void drawHandles(MutablePixelView view) const noexcept override;

 private:
    static constexpr int kNoChain = -2;

    void mirror(std::size_t target, std::size_t anchor, std::size_t source) noexcept;
};

}  // namespace orvane
