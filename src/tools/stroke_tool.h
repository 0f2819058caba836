#pragma once

#include <cstddef>
#include <vector>

#include "tools/freehand_tool.h"
#include "tools/nib.h"

namespace orvane {

/// What a stroke's pixels depend on beside its points: as long as it stays equal, what was drawn of the trail
/// holds.
struct TrailLook {
    Nib nib;
    unsigned stroke = 0;  ///< another number for each stroke of a tool
    friend bool operator==(const TrailLook&, const TrailLook&) = default;
};

/// Base of the brush and the eraser: a nib led along the mouse.
///
/// A stroke is drawn as a trail of pieces in order, each by source-over. Pieces once there never change while
/// the stroke goes on, so whoever keeps a picture of the trail only draws what was added.
///
///     bars:               piece i is the sweep from point i to point i + 1
///     squares, circles:   piece i is stamp i; the stamps are the pixels of the way, none twice in a row
class StrokeTool : public FreehandTool {
 public:
    using FreehandTool::FreehandTool;

    void Reset() noexcept override;
    /// Answers whether the stroke has become longer; its first point does not count.
    bool AppendPoint(IntPoint point) noexcept override;
    void Draw(MutablePixelView view) noexcept override;
    /// The nib is as large on the image as on screen, whatever the zoom. Cost: the stroke's length.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;
    /// Shows the nib at the mouse.
    virtual void drawMarker(MutablePixelView view, IntPoint pointer) noexcept = 0;

    [[nodiscard]] TrailLook trailLook() const noexcept { return {nib(), stroke_}; }
    [[nodiscard]] std::size_t trailLength() const noexcept;
    /// Draws the pieces from <= i < to, with to <= trailLength(). However the whole is divided, its pixels
    /// are the same.
    void drawTrail(MutablePixelView view, std::size_t from, std::size_t to) noexcept;
    /// Draws what goes on top of the trail only for now: the bar of a stroke that has one point.
    void drawBeyondTrail(MutablePixelView view) noexcept;

 protected:
    [[nodiscard]] virtual Nib nib() const noexcept = 0;

 private:
    void drawPieces(MutablePixelView target, std::size_t from, std::size_t to, PointMap map) const noexcept;
    void drawSweeps(MutablePixelView target, std::size_t from, std::size_t to, PointMap map) const noexcept;
    void drawStamps(MutablePixelView target, std::size_t from, std::size_t to, PointMap map) const noexcept;
    void drawFirstBar(MutablePixelView target, PointMap map) const noexcept;

    std::vector<std::size_t> stampEnds_;  // for each point, how many stamps there are up to it
    unsigned stroke_ = 0;
};

}  // namespace orvane
