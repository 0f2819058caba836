#pragma once

#include <initializer_list>
#include <string>

#include <orvane/dispatch_types.h>
#include <orvane/event_sink.h>
#include <orvane/headless_clipboard.h>
#include <orvane/headless_window.h>

#include "control/vistrel_control.h"
#include "support/fuzz_input.h"

namespace orvane {

/// Drives a control by whatever an input says: member calls with usual, odd and wild arguments, gestures in
/// and out of the window, sizes, ticks and dropped files. Events are answered from inside by more calls.
class RandomSteps final : private EventSink {
 public:
    RandomSteps();

    /// One message or member call.
    void step(FuzzInput& data);
    /// What is wrong with the control or its window; "" when nothing is.
    [[nodiscard]] std::string brokenInvariant() const;

    HeadlessWindow window;
    HeadlessClipboard clipboard;
    VistrelControl control;

 private:
    void onEvent(EventId event, std::span<const Value> arguments) override;
    void call(const char* member, InvokeKind kind, std::initializer_list<Value> arguments);
    void callMember(FuzzInput& data);
    void sendMessage(FuzzInput& data);

    MouseButtons held_;
    IntPoint mouse_;
    int eventsHeard_ = 0;
};

}  // namespace orvane
