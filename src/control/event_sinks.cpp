#include "control/event_sinks.h"

#include <algorithm>

namespace orvane {

bool EventSinks::connect(EventSink& sink) noexcept {
    try {
        sinks_.push_back(&sink);
        return true;
    } catch (...) {
        return false;
    }
}

void EventSinks::disconnect(EventSink& sink) noexcept {
    const auto found = std::find(sinks_.rbegin(), sinks_.rend(), &sink);
    if (found == sinks_.rend()) return;
    *found = nullptr;
    if (delivering_ == 0) dropGaps();
}

void EventSinks::fire(EventId event, std::span<const Value> arguments) noexcept {
    ++delivering_;
    const std::size_t count = sinks_.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (EventSink* sink = sinks_[i]) {
            try {
                sink->onEvent(event, arguments);
            } catch (...) {
                // A sink's failure is its own: the next one hears the event all the same.
            }
        }
    }
    if (--delivering_ == 0) dropGaps();
}

void EventSinks::dropGaps() noexcept {
    sinks_.erase(std::remove(sinks_.begin(), sinks_.end(), nullptr), sinks_.end());
}

}  // namespace orvane
