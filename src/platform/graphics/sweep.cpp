#include "platform/graphics/sweep.h"

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

constexpr double kSameX = 1e-6;           // edges this near each other have not parted yet
constexpr double kOverlap = 1.0 / 1024;   // a crossing that does not reach further changes no coverage
constexpr std::size_t kRowEffort = 4096;  // places looked at in a row before it is sampled
constexpr double kSamplesPerRow = 16;
constexpr std::size_t kFewNewcomers = 64, kLikelyPredecessors = 16;
constexpr std::size_t kMostChains = 32, kMostLinks = 256;  // of a simple row

bool precedes(const SweepEdge* a, const SweepEdge* b) {
    return std::abs(a->x - b->x) > kSameX ? a->x < b->x : a->slope < b->slope;
}

}  // namespace

Sweep::Sweep(ScratchVector<SweepEdge>& edges, FillRule rule, int width) : rule_(rule), row_(width) {
    starts_.reserve(edges.size());
    for (SweepEdge& edge : edges) starts_.push_back({edge.top, &edge});
    std::sort(starts_.begin(), starts_.end(), [](const Start& a, const Start& b) { return a.top < b.top; });
    order_.reserve(edges.size());
    ended_.reserve(edges.size());
    events_.reserve(std::min(4 * edges.size(), kRowEffort) + 256);
    chains_.reserve(kMostChains);
    links_.reserve(kMostLinks);
}

void Sweep::run(CoverageSink& sink) noexcept {
    double row = 0;
    while (next_ < starts_.size() || !order_.empty()) {
        if (order_.empty()) row = std::max(row, std::floor(starts_[next_].top));
        fillRow(row, row + 1);
        row_.handOut(int(row), sink);
        row += 1;
        changedFirst_ = 0;
        changedEnd_ = order_.size();
        removeEnded(row);
    }
}

void Sweep::fillRow(double top, double bottom) noexcept {
    reorder(top, admit(top));
    if (fillSimpleRow(top, bottom)) return;
    beginRow(top, bottom);
    for (double y = nextEvent(); y < bottom; y = nextEvent()) {
        if (effort_ > kRowEffort) return sampleRow(y, bottom);
        handleEvents(y);
    }
    settleAll(bottom);
}

// Nothing has been entered or moved when the answer is no.
bool Sweep::fillSimpleRow(double top, double bottom) noexcept {
    if (order_.size() > kMostChains || !buildChains(top, bottom)) return false;
    enterChains(top, bottom);
    next_ += links_.size() - chains_.size();
    return true;
}

// Outlines must reach from the row's top to its bottom, and none may come near its neighbour.
bool Sweep::buildChains(double top, double bottom) noexcept {
    chains_.clear();
    links_.clear();
    for (SweepEdge* edge : order_) {
        const double x = edge->x, end = edge->xAt(std::min(edge->bottom, bottom));
        links_.push_back({edge, std::uint32_t(chains_.size())});
        chains_.push_back({edge, std::min(x, end), std::max(x, end)});
    }
    for (std::size_t i = next_; i < starts_.size() && starts_[i].top < bottom; ++i) {
        if (links_.size() == kMostLinks || !addLink(*starts_[i].edge, bottom)) return false;
    }
    for (std::size_t i = 0; i < chains_.size(); ++i) {
        if (chains_[i].edge->bottom < bottom) return false;
        if (i > 0 && chains_[i].leftX < chains_[i - 1].rightX) return false;
    }
    return top < bottom;
}

bool Sweep::addLink(SweepEdge& edge, double bottom) noexcept {
    for (std::size_t i = 0; i < chains_.size(); ++i) {
        Chain& chain = chains_[i];
        const SweepEdge& last = *chain.edge;
        if (last.bottom != edge.top || last.bottomX != edge.topX || last.winding != edge.winding) continue;
        const double end = edge.xAt(std::min(edge.bottom, bottom));
        chain = {&edge, std::min(chain.leftX, end), std::max(chain.rightX, end)};
        links_.push_back({&edge, std::uint32_t(i)});
        return true;
    }
    return false;
}

void Sweep::enterChains(double top, double bottom) noexcept {
    int winding = 0;
    for (std::size_t i = 0; i < chains_.size(); ++i) {
        SweepEdge& edge = *order_[i];
        const int before = winding;
        winding += edge.winding;
        edge.side = (isInside(winding) ? 1 : 0) - (isInside(before) ? 1 : 0);
    }
    for (const Link& link : links_) {
        const SweepEdge& edge = *link.edge;
        const int side = order_[link.chain]->side;
        const double from = std::max(edge.top, top), to = std::min(edge.bottom, bottom);
        if (side != 0) row_.add(edge.xAt(from), edge.xAt(to), side * (to - from));
    }
    for (std::size_t i = 0; i < chains_.size(); ++i) {
        order_[i] = chains_[i].edge;
        order_[i]->since = bottom;
    }
}

void Sweep::beginRow(double top, double bottom) noexcept {
    rowBottom_ = bottom;
    effort_ = 0;
    events_.clear();
    for (SweepEdge* edge : order_) edge->since = top;
    for (SweepEdge* edge : order_) foreseeEnd(*edge);
    change(0, order_.size());
    assignSides(top);
    foresee(top);
}

std::size_t Sweep::admit(double y) noexcept {
    const std::size_t before = order_.size();
    for (; next_ < starts_.size() && starts_[next_].top <= y; ++next_) {
        SweepEdge* const edge = starts_[next_].edge;
        edge->since = y;
        if (edge->bottom > y) order_.push_back(edge);
    }
    return order_.size() - before;
}

// All but the newcomers were in order a little higher up.
void Sweep::reorder(double y, std::size_t newcomers) noexcept {
    for (SweepEdge* edge : order_) edge->x = edge->xAt(y);
    if (newcomers > kFewNewcomers) {
        std::sort(order_.begin(), order_.end(),
                  [](const SweepEdge* a, const SweepEdge* b) { return a->x < b->x; });
        newcomers = 0;
    }
    const auto known = order_.end() - std::ptrdiff_t(newcomers);
    for (auto it = order_.begin(); it != known; ++it) {
        SweepEdge* const moved = *it;
        auto place = it;
        for (; place != order_.begin() && precedes(moved, place[-1]); --place) *place = place[-1];
        *place = moved;
    }
    for (auto it = known; it != order_.end(); ++it) {
        std::rotate(std::upper_bound(order_.begin(), it, *it, precedes), it, it + 1);
    }
    for (std::size_t i = 0; i < order_.size(); ++i) order_[i]->place = std::uint32_t(i);
}

double Sweep::nextEvent() const noexcept {
    const double start = next_ < starts_.size() ? starts_[next_].top : rowBottom_;
    return events_.empty() ? start : std::min(start, events_.front().y);
}

void Sweep::handleEvents(double y) noexcept {
    changedFirst_ = changedEnd_ = 0;
    ended_.clear();
    while (!events_.empty() && events_.front().y <= y) {
        const Event event = events_.front();
        std::pop_heap(events_.begin(), events_.end());
        events_.pop_back();
        const std::size_t place = event.left->place;
        if (event.right == nullptr) {
            ended_.push_back(event.left);
            change(place, place + 1);
        } else if (place + 1 < order_.size() && order_[place] == event.left &&
                   order_[place + 1] == event.right) {
            std::swap(order_[place], order_[place + 1]);
            event.left->place = std::uint32_t(place + 1);
            event.right->place = std::uint32_t(place);
            change(place, place + 2);
        }
    }
    for (; next_ < starts_.size() && starts_[next_].top <= y; ++next_) {
        if (starts_[next_].edge->bottom > y) enter(*starts_[next_].edge, y);
    }
    removeEnded(y);
    assignSides(y);
    foresee(y);
}

// An edge that goes on where another one ends takes its place, which leaves all others where they are.
bool Sweep::succeed(SweepEdge& edge, double y) noexcept {
    const std::size_t count = std::min(ended_.size(), kLikelyPredecessors);
    for (std::size_t i = 0; i < count; ++i) {
        SweepEdge& other = *ended_[i];
        if (other.bottomX != edge.topX) continue;
        settle(other, y);
        edge.place = other.place;
        order_[edge.place] = &edge;
        ended_[i] = ended_.back();
        ended_.pop_back();
        return true;
    }
    return false;
}

void Sweep::enter(SweepEdge& edge, double y) noexcept {
    edge.since = y;
    edge.side = 0;
    edge.x = edge.xAt(y);
    foreseeEnd(edge);
    if (succeed(edge, y)) return;
    auto place = std::partition_point(order_.begin(), order_.end(),
                                      [&](const SweepEdge* e) { return e->xAt(y) < edge.x - kSameX; });
    for (auto it = place; it != order_.end() && (*it)->xAt(y) <= edge.x + kSameX; ++it) {
        if ((*it)->slope < edge.slope) place = it + 1;
    }
    const auto first = std::size_t(place - order_.begin());
    order_.insert(place, &edge);
    for (std::size_t i = first; i < order_.size(); ++i) order_[i]->place = std::uint32_t(i);
    if (changedFirst_ < changedEnd_ && first < changedEnd_) ++changedEnd_;
    change(first, first + 1);
    effort_ += (order_.size() - first) / 8;
}

// All that have ended are among the changed places.
void Sweep::removeEnded(double y) noexcept {
    std::size_t kept = changedFirst_;
    for (std::size_t i = changedFirst_; i < changedEnd_; ++i) {
        SweepEdge* const edge = order_[i];
        if (edge->bottom > y) {
            order_[kept] = edge;
            edge->place = std::uint32_t(kept++);
        } else {
            settle(*edge, y);
        }
    }
    if (kept == changedEnd_) return;
    order_.erase(order_.begin() + std::ptrdiff_t(kept), order_.begin() + std::ptrdiff_t(changedEnd_));
    for (std::size_t i = kept; i < order_.size(); ++i) order_[i]->place = std::uint32_t(i);
    changedEnd_ = kept;
    effort_ += (order_.size() - kept) / 8;
}

void Sweep::change(std::size_t first, std::size_t end) noexcept {
    if (changedFirst_ == changedEnd_) {
        changedFirst_ = first;
        changedEnd_ = end;
    } else {
        changedFirst_ = std::min(changedFirst_, first);
        changedEnd_ = std::max(changedEnd_, end);
    }
}

// Right of the changed places everything stays as soon as one edge does.
void Sweep::assignSides(double y) noexcept {
    int winding = 0;
    if (changedFirst_ > 0) winding = order_[changedFirst_ - 1]->before + order_[changedFirst_ - 1]->winding;
    for (std::size_t i = changedFirst_; i < order_.size(); ++i) {
        SweepEdge& edge = *order_[i];
        if (i >= changedEnd_ && edge.before == winding) break;
        edge.before = winding;
        winding += edge.winding;
        const int side = (isInside(winding) ? 1 : 0) - (isInside(edge.before) ? 1 : 0);
        if (side == edge.side) continue;
        settle(edge, y);
        edge.side = side;
    }
}

// Of all edges that cross, the first two are neighbours until they do.
void Sweep::foresee(double y) noexcept {
    const std::size_t end = std::min(changedEnd_ + 1, order_.size());
    for (std::size_t i = std::max<std::size_t>(changedFirst_, 1); i < end; ++i) foreseeCrossing(i, y);
    effort_ += 1 + end - std::min(end, changedFirst_);
}

void Sweep::foreseeEnd(SweepEdge& edge) noexcept {
    if (edge.bottom < rowBottom_) addEvent({edge.bottom, &edge, nullptr});
}

void Sweep::foreseeCrossing(std::size_t place, double y) noexcept {
    SweepEdge &left = *order_[place - 1], &right = *order_[place];
    const double bottom = std::min({rowBottom_, left.bottom, right.bottom});
    const double overlap = left.xAt(bottom) - right.xAt(bottom);
    if (overlap <= kOverlap) return;
    const double apart = std::max(right.xAt(y) - left.xAt(y), 0.0);
    addEvent({y + (bottom - y) * (apart / (apart + overlap)), &left, &right});
}

void Sweep::addEvent(const Event& event) noexcept {
    if (events_.size() == events_.capacity()) {
        effort_ = kRowEffort + 1;  // no more room: the row is going to be sampled
        return;
    }
    events_.push_back(event);
    std::push_heap(events_.begin(), events_.end());
}

// In each of some equal bands the edges that cross its middle stand for the whole band.
void Sweep::sampleRow(double top, double bottom) noexcept {
    settleAll(top);
    const double samples = std::ceil((bottom - top) * kSamplesPerRow), height = (bottom - top) / samples;
    for (double i = 0; i < samples; ++i) {
        const double y = top + (i + 0.5) * height;
        for (SweepEdge* edge : order_) edge->side = 0;
        changedFirst_ = 0;
        changedEnd_ = order_.size();
        removeEnded(y);
        reorder(y, admit(y));
        changedFirst_ = changedEnd_ = 0;
        change(0, order_.size());
        assignSides(y);
        for (const SweepEdge* edge : order_) {
            if (edge->side != 0) row_.add(edge->x, edge->x, edge->side * height);
        }
    }
    for (SweepEdge* edge : order_) edge->side = 0;
}

// Enters what an edge has divided so far.
void Sweep::settle(SweepEdge& edge, double y) noexcept {
    if (edge.side != 0 && y > edge.since) {
        row_.add(edge.xAt(edge.since), edge.xAt(y), edge.side * (y - edge.since));
    }
    edge.since = y;
}

void Sweep::settleAll(double y) noexcept {
    for (SweepEdge* edge : order_) settle(*edge, y);
}

}  // namespace orvane
