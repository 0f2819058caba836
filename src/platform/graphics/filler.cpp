#include "platform/graphics/filler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane {
namespace {

using Edge = AreaFiller::Edge;

constexpr double kSameX = 1e-6;          // edges this near each other have not parted yet
constexpr double kOverlap = 1.0 / 1024;  // a crossing that does not reach further changes no coverage
constexpr double kLeastBand = 1.0 / 4096;
constexpr double kLeastHeight = 1e-9;        // a piece of an outline that is flatter divides no area
constexpr std::size_t kRowEffort = 100'000;  // edges times bands in a row before it is sampled
constexpr double kSamplesPerRow = 16;

struct ActiveEdge {
    const Edge* edge;
    double x, endX;  // at the top and at the bottom of the band
    double since;    // the y from which on `side` holds
    int side;        // 1 where the inside begins, -1 where it ends, 0 where the edge divides nothing
};

/// Goes down the rows with the edges that cross the current height, in order from left to right.
class Sweep {
 public:
    Sweep(std::vector<Edge>& edges, FillRule rule, CoverageRow& row) : edges_(edges), rule_(rule), row_(row) {
        std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.top < b.top; });
        active_.reserve(edges.size());
    }

    void run(CoverageSink& sink) noexcept;

 private:
    void fillRow(double y, double bottom) noexcept;
    void sampleRow(double y, double bottom) noexcept;
    void admit(double y) noexcept;
    void retire(double y) noexcept;
    void arrange(double top, double bottom) noexcept;
    [[nodiscard]] double nextEnd(double limit) const noexcept;
    [[nodiscard]] double firstCrossing(double top, double bottom) const noexcept;
    void assignSides(double y) noexcept;
    void settle(ActiveEdge& a, double y) noexcept;
    void settleAll(double y) noexcept;
    [[nodiscard]] bool isInside(int winding) const noexcept {
        return rule_ == FillRule::Winding ? winding != 0 : (winding & 1) != 0;
    }

    const std::vector<Edge>& edges_;
    const FillRule rule_;
    CoverageRow& row_;
    std::vector<ActiveEdge> active_;
    std::size_t next_ = 0;  // the first edge that has not been reached
    bool manyAdmitted_ = false;
};

void Sweep::run(CoverageSink& sink) noexcept {
    double row = 0;
    while (next_ < edges_.size() || !active_.empty()) {
        if (active_.empty()) row = std::max(row, std::floor(edges_[next_].top));
        fillRow(row, row + 1);
        row_.handOut(int(row), sink);
        row += 1;
        retire(row);
    }
}

void Sweep::fillRow(double y, double bottom) noexcept {
    for (ActiveEdge& a : active_) a.since = y;
    for (std::size_t effort = 0; y < bottom; effort += active_.size()) {
        if (effort > kRowEffort) return sampleRow(y, bottom);
        retire(y);
        admit(y);
        double end = nextEnd(bottom);
        arrange(y, end);
        end = firstCrossing(y, end);
        assignSides(y);
        y = end;
    }
    settleAll(bottom);
}

// In each of some equal bands the edges that cross its middle stand for the whole band.
void Sweep::sampleRow(double y, double bottom) noexcept {
    settleAll(y);
    for (ActiveEdge& a : active_) a.side = 0;
    const double samples = std::ceil((bottom - y) * kSamplesPerRow), height = (bottom - y) / samples;
    for (double i = 0; i < samples; ++i) {
        const double at = y + (i + 0.5) * height;
        retire(at);
        admit(at);
        arrange(at, at);
        assignSides(at);
        for (const ActiveEdge& a : active_) {
            if (a.side != 0) row_.add(a.x, a.x, a.side * height);
        }
        for (ActiveEdge& a : active_) a.side = 0;
    }
}

void Sweep::admit(double y) noexcept {
    const std::size_t before = active_.size();
    for (; next_ < edges_.size() && edges_[next_].top <= y; ++next_) {
        if (edges_[next_].bottom > y) active_.push_back({&edges_[next_], 0, 0, y, 0});
    }
    manyAdmitted_ = active_.size() > before + 16;
}

void Sweep::retire(double y) noexcept {
    std::size_t kept = 0;
    for (ActiveEdge& a : active_) {
        if (a.edge->bottom > y) {
            active_[kept++] = a;
        } else {
            settle(a, y);
        }
    }
    active_.erase(active_.begin() + std::ptrdiff_t(kept), active_.end());
}

double Sweep::nextEnd(double limit) const noexcept {
    if (next_ < edges_.size()) limit = std::min(limit, edges_[next_].top);
    for (const ActiveEdge& a : active_) limit = std::min(limit, a.edge->bottom);
    return limit;
}

// From left to right as the edges run on from the band's top. They were in order at the end of the band
// above, so that inserting is quick.
void Sweep::arrange(double top, double bottom) noexcept {
    for (ActiveEdge& a : active_) {
        a.x = a.edge->xAt(top);
        a.endX = a.edge->xAt(bottom);
    }
    if (manyAdmitted_) {
        std::sort(active_.begin(), active_.end(),
                  [](const ActiveEdge& a, const ActiveEdge& b) { return a.x < b.x; });
    }
    const auto precedes = [](const ActiveEdge& a, const ActiveEdge& b) {
        return std::abs(a.x - b.x) > kSameX ? a.x < b.x : a.endX < b.endX;
    };
    for (std::size_t i = 1; i < active_.size(); ++i) {
        if (!precedes(active_[i], active_[i - 1])) continue;
        const ActiveEdge moved = active_[i];
        std::size_t place = i;
        for (; place > 0 && precedes(moved, active_[place - 1]); --place) active_[place] = active_[place - 1];
        active_[place] = moved;
    }
}

// The first two edges to cross are neighbours until they do.
double Sweep::firstCrossing(double top, double bottom) const noexcept {
    double first = bottom;
    for (std::size_t i = 1; i < active_.size(); ++i) {
        const ActiveEdge &a = active_[i - 1], &b = active_[i];
        const double overlap = a.endX - b.endX, apart = std::max(b.x - a.x, 0.0);
        if (overlap <= kOverlap) continue;
        first = std::min(first, top + (bottom - top) * (apart / (apart + overlap)));
    }
    return std::max(first, std::min(top + kLeastBand, bottom));
}

void Sweep::assignSides(double y) noexcept {
    int winding = 0;
    for (ActiveEdge& a : active_) {
        const int outside = isInside(winding) ? 1 : 0;
        winding += a.edge->winding;
        const int side = (isInside(winding) ? 1 : 0) - outside;
        if (side == a.side) continue;
        settle(a, y);
        a.side = side;
    }
}

// Enters what an edge has divided so far.
void Sweep::settle(ActiveEdge& a, double y) noexcept {
    if (a.side != 0 && y > a.since) row_.add(a.edge->xAt(a.since), a.edge->xAt(y), a.side * (y - a.since));
    a.since = y;
}

void Sweep::settleAll(double y) noexcept {
    for (ActiveEdge& a : active_) settle(a, y);
}

}  // namespace

double AreaFiller::Edge::xAt(double y) const noexcept {
    return std::clamp(topX + (y - top) * slope, leastX, mostX);
}

void AreaFiller::addPiece(double top, double topX, double bottom, double bottomX, int winding) {
    if (bottom <= top) return;
    const auto [least, most] = std::minmax(topX, bottomX);
    edges_.push_back({top, bottom, topX, (bottomX - topX) / (bottom - top), least, most, winding});
}

void AreaFiller::addEdge(PlanePoint from, PlanePoint to) {
    const int winding = from.y < to.y ? 1 : -1;
    if (winding < 0) std::swap(from, to);
    const double width = raster_.width, height = raster_.height;
    if (!(to.y - from.y >= kLeastHeight) || to.y <= 0 || from.y >= height ||
        (from.x >= width && to.x >= width))
        return;

    const double slope = (to.x - from.x) / (to.y - from.y);
    const auto xAt = [&](double y) { return from.x + (y - from.y) * slope; };
    const auto yAt = [&](double x) { return from.y + (x - from.x) / slope; };
    double top = std::max(from.y, 0.0), bottom = std::min(to.y, height);
    double topX = top == from.y ? from.x : xAt(top), bottomX = bottom == to.y ? to.x : xAt(bottom);
    // Left of the raster an edge runs along the border instead, for all pixels are right of it. Right of the
    // raster it has nothing to tell.
    const auto cutAt = [&](double border, bool keptAlongBorder) {
        if ((topX - border) * (bottomX - border) >= 0) return;
        const double y = std::clamp(yAt(border), top, bottom);
        const bool topIsLeft = topX < border;
        if (keptAlongBorder) {
            topIsLeft ? addPiece(top, border, y, border, winding)
                      : addPiece(y, border, bottom, border, winding);
        }
        if (topIsLeft == keptAlongBorder) {
            top = y;
            topX = border;
        } else {
            bottom = y;
            bottomX = border;
        }
    };
    cutAt(0, true);
    cutAt(width, false);
    topX = std::max(topX, 0.0);
    bottomX = std::max(bottomX, 0.0);
    if (topX >= width && bottomX >= width) return;
    addPiece(top, topX, bottom, bottomX, winding);
}

void AreaFiller::fill(FillRule rule, CoverageSink& sink) {
    CoverageRow row(raster_.width);
    Sweep(edges_, rule, row).run(sink);
    edges_.clear();
}

}  // namespace orvane
