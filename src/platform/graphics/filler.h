#pragma once

#include <orvane/geometry.h>

#include <vector>

#include "platform/graphics/coverage_row.h"
#include "platform/graphics/plane.h"

/// Areas between edges, as the exact share of every pixel that they cover.
namespace orvane {

enum class FillRule {
    Alternate,  ///< inside is what an odd number of edges separates from the outside
    Winding     ///< inside is what the edges go round, in total, at least once
};

/// Collects the edges of closed outlines, then fills what is inside.
///
/// Edges may come in any order and share nothing but their end points; what matters is that every outline
/// closes. Rows are cut where an edge begins or ends and where two edges cross, so that the coverage is the
/// area itself, at any angle and however the outlines overlap. Only rows in which a great many edges cross
/// each other are sampled at sixteen heights instead.
class AreaFiller {
 public:
    /// For a raster of at least one pixel. What lies outside is cut off as it comes.
    explicit AreaFiller(IntSize raster) : raster_(raster) {}

    [[nodiscard]] IntSize raster() const noexcept { return raster_; }

    /// Any finite coordinates. Throws std::bad_alloc.
    void addEdge(PlanePoint from, PlanePoint to);

    /// Hands the covered pixels to the sink, row by row, and forgets the edges. Throws std::bad_alloc before
    /// the sink gets anything, or not at all.
    void fill(FillRule rule, CoverageSink& sink);

    /// A piece of an outline that goes down inside the raster.
    struct Edge {
        double top = 0, bottom = 0;
        double topX = 0, slope = 0;
        double leastX = 0, mostX = 0;
        int winding = 0;  ///< 1 when the outline goes down here, -1 when it goes up

        [[nodiscard]] double xAt(double y) const noexcept;
    };

 private:
    void addPiece(double top, double topX, double bottom, double bottomX, int winding);

    IntSize raster_;
    std::vector<Edge> edges_;
};

}  // namespace orvane
