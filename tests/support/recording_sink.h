#pragma once

#include <functional>
#include <string>
#include <vector>

#include <orvane/event_sink.h>

namespace orvane {

/// Writes down events as "OnTrackPointMouseDown 10 20", and may call back.
class RecordingSink final : public EventSink {
 public:
    void onEvent(EventId event, std::span<const Value> arguments) override {
        std::string text = eventName(event);
        for (const Value& argument : arguments) {
            if (argument.type() == ValueType::Long) text += " " + std::to_string(argument.number());
        }
        heard.push_back(text);
        if (then) then(event);
    }
    std::vector<std::string> take() { return std::exchange(heard, {}); }

    std::vector<std::string> heard;
    std::function<void(EventId)> then;
};

}  // namespace orvane
