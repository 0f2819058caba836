#pragma once

#include <span>
#include <vector>

#include <orvane/event_sink.h>

namespace orvane {

/// The connected listeners, called in the order of connection. A sink may connect and disconnect sinks,
/// itself included, while an event is on its way: a disconnected one is not called any more, a new one hears
/// the next event.
class EventSinks {
 public:
    /// False when memory ran out. A sink connected twice is called twice.
    bool connect(EventSink& sink) noexcept;
    /// Drops the sink's latest connection; an unknown sink is ignored.
    void disconnect(EventSink& sink) noexcept;
    void fire(EventId event, std::span<const Value> arguments) noexcept;

 private:
    void dropGaps() noexcept;

    std::vector<EventSink*> sinks_;  ///< null where a sink left while an event was being delivered
    int delivering_ = 0;             ///< nested deliveries under way
};

}  // namespace orvane
