#pragma once

#include <orvane/geometry.h>

#include <cstddef>

#include "platform/graphics/plane.h"
#include "platform/graphics/sweep.h"

/// Areas between edges, as the exact share of every pixel that they cover.
namespace orvane {

/// Collects the edges of closed outlines, then fills what is inside.
///
/// Edges may come in any order and share nothing but their end points; what matters is that every outline
/// closes.
class AreaFiller {
 public:
    /// For a raster of at least one pixel. What lies outside is cut off as it comes.
    explicit AreaFiller(IntSize raster) : raster_(raster) {}

    [[nodiscard]] IntSize raster() const noexcept { return raster_; }

    /// Makes room for so many edges at once. Throws std::bad_alloc.
    void expect(std::size_t edges) { edges_.reserve(edges); }

    /// Any finite coordinates. Throws std::bad_alloc.
    void addEdge(PlanePoint from, PlanePoint to);

    /// Hands the covered pixels to the sink, row by row, and forgets the edges. Throws std::bad_alloc before
    /// the sink gets anything, or not at all.
    void fill(FillRule rule, CoverageSink& sink);

 private:
    void addPiece(double top, double topX, double bottom, double bottomX, int winding);

    IntSize raster_;
    ScratchVector<SweepEdge> edges_;
};

}  // namespace orvane
