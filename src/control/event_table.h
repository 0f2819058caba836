#pragma once

#include <span>

#include <orvane/event_sink.h>

#include "control/member.h"

namespace orvane {

/// One event of `_IVistrelEvents`, for whatever is generated from the members.
struct Event {
    static constexpr int kMaxParameters = 2;

    EventId id = {};
    const char* help = "";  ///< when it is fired, in one line
    Parameter parameters[kMaxParameters] = {};

    [[nodiscard]] const char* name() const { return eventName(id); }
    [[nodiscard]] constexpr int parameterCount() const {
        int count = 0;
        while (count < kMaxParameters && parameters[count].name != nullptr) ++count;
        return count;
    }
};

/// All events in the order of their dispatch identifiers.
[[nodiscard]] std::span<const Event> eventTable() noexcept;

}  // namespace orvane
