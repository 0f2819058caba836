#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/graphics/coverage_row.h"
#include "platform/graphics/scratch.h"

namespace orvane {

enum class FillRule {
    Alternate,  ///< inside is what an odd number of edges separates from the outside
    Winding     ///< inside is what the edges go round, in total, at least once
};

/// A straight piece of an outline inside the raster, from its upper end to its lower one.
struct SweepEdge {
    double top = 0, bottom = 0;
    double topX = 0, bottomX = 0, slope = 0;
    int winding = 0;  ///< 1 where the outline goes down, -1 where it goes up

    // What the sweep knows of it while it passes.
    int before = 0;           ///< how often the outlines go round what is left of the edge
    int side = 0;             ///< 1 where the inside begins, -1 where it ends, 0 where nothing is divided
    std::uint32_t place = 0;  ///< among the edges at this height, from left to right
    double since = 0;         ///< the height from which on `side` holds
    double x = 0;             ///< where the edge was last looked at

    /// For heights between its ends.
    [[nodiscard]] double xAt(double y) const noexcept {
        const double along = topX + (y - top) * slope;
        return slope < 0 ? std::max(along, bottomX) : std::min(along, bottomX);
    }
};

/// Goes down the rows with the edges that cross the current height, ordered from left to right, and enters
/// into the coverage what lies between them.
///
/// Inside a row it stops where an edge begins or ends and where two neighbours cross, so that the coverage is
/// the area itself. Only what is next to such an event is looked at again. A row of very many events is
/// sampled at sixteen heights instead.
///
/// Most rows need none of this: the outlines cross them one beside the other, each as a chain of edges that
/// follow one another down. Then the sides are known at once, and every edge is entered as it is.
class Sweep {
 public:
    /// The edges must stay where they are. Throws std::bad_alloc; the sweep itself does not.
    Sweep(ScratchVector<SweepEdge>& edges, FillRule rule, int width);

    /// From the first row to the last, once.
    void run(CoverageSink& sink) noexcept;

 private:
    struct Start {
        double top;
        SweepEdge* edge;
    };
    /// `left` ends where there is no `right`; else the two cross.
    struct Event {
        double y;
        SweepEdge *left, *right;
        friend bool operator<(const Event& a, const Event& b) {
            return a.y > b.y;
        }  // the heap's top is first
    };

    /// An outline's way through the row: the edge that goes down from the last one's end, and how far to
    /// either side all of them reach.
    struct Chain {
        SweepEdge* edge;
        double leftX, rightX;
    };
    /// A part of a chain.
    struct Link {
        SweepEdge* edge;
        std::uint32_t chain;
    };

    void fillRow(double top, double bottom) noexcept;
    [[nodiscard]] bool fillSimpleRow(double top, double bottom) noexcept;
    [[nodiscard]] bool buildChains(double top, double bottom) noexcept;
    [[nodiscard]] bool addLink(SweepEdge& edge, double bottom) noexcept;
    void enterChains(double top, double bottom) noexcept;
    void beginRow(double top, double bottom) noexcept;
    void sampleRow(double top, double bottom) noexcept;

    [[nodiscard]] double nextEvent() const noexcept;
    void handleEvents(double y) noexcept;
    [[nodiscard]] bool succeed(SweepEdge& edge, double y) noexcept;
    void enter(SweepEdge& edge, double y) noexcept;
    void removeEnded(double y) noexcept;
    void reorder(double y, std::size_t newcomers) noexcept;
    std::size_t admit(double y) noexcept;

    void change(std::size_t first, std::size_t last) noexcept;
    void assignSides(double y) noexcept;
    void foresee(double y) noexcept;
    void foreseeEnd(SweepEdge& edge) noexcept;
    void foreseeCrossing(std::size_t place, double y) noexcept;
    void addEvent(const Event& event) noexcept;

    void settle(SweepEdge& edge, double y) noexcept;
    void settleAll(double y) noexcept;
    [[nodiscard]] bool isInside(int winding) const noexcept {
        return rule_ == FillRule::Winding ? winding != 0 : (winding & 1) != 0;
    }

    const FillRule rule_;
    CoverageRow row_;
    ScratchVector<Start> starts_;  ///< from top to bottom
    std::size_t next_ = 0;         ///< the first edge that has not been reached
    ScratchVector<SweepEdge*> order_;
    ScratchVector<SweepEdge*> ended_;  ///< at this height, and still in order
    ScratchVector<Event> events_;      ///< a heap: what is to come in this row
    ScratchVector<Chain> chains_;      ///< of a simple row, from left to right, as in order_
    ScratchVector<Link> links_;
    double rowBottom_ = 0;
    std::size_t changedFirst_ = 0, changedEnd_ = 0;  ///< places to be looked at again
    std::size_t effort_ = 0;
};

}  // namespace orvane
