#pragma once

#include <span>

#include <orvane/value.h>

namespace orvane {

/// The events of `_IVistrelEvents` with their dispatch identifiers.
enum class EventId : int {
    OnDropFile = 1,             ///< String FileName: the first dropped file; the control does not open it
    OnTrackPointMouseDown = 2,  ///< Long X, Long Y in image pixels
    OnTrackPointMouseMove = 3,  ///< Long X, Long Y in image pixels
    OnTrackPointMouseUp = 4,    ///< Long X, Long Y in image pixels
    OnHitApplyRotate = 5,
    OnHitCancelRotate = 6,
    OnHitCloseScrollWindow = 7,
};

/// The event's name, "OnDropFile" and so on.
[[nodiscard]] constexpr const char* eventName(EventId id) {
    constexpr const char* kNames[] = {"",
                                      "OnDropFile",
                                      "OnTrackPointMouseDown",
                                      "OnTrackPointMouseMove",
                                      "OnTrackPointMouseUp",
                                      "OnHitApplyRotate",
                                      "OnHitCancelRotate",
                                      "OnHitCloseScrollWindow"};
    return kNames[static_cast<int>(id)];
}

/// A listener. Events are delivered synchronously, in the order in which sinks were connected; a sink may
/// call back into the control and may disconnect itself.
class EventSink {
 public:
    virtual ~EventSink() = default;
    virtual void onEvent(EventId event, std::span<const Value> arguments) = 0;
};

}  // namespace orvane
