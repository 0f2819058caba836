#pragma once

#include <span>

#include <orvane/event_sink.h>
#include <orvane/value.h>

/// The members and events as the widget's class needs them: tables made from the member table.
namespace orvane::gtk {

struct MethodRow {
    int id = 0;
    const char* name = "";  ///< "gaussian-blur"
    ValueType type = ValueType::None;
    int parameterCount = 0;
    ValueType parameters[5] = {};
};

struct PropertyRow {
    int id = 0;
    const char* name = "";  ///< "pen-width"
    ValueType type = ValueType::None;
    bool canPut = false;
    const char* help = "";
};

struct SignalRow {
    EventId event = {};
    const char* name = "";  ///< "drop-file"
    int parameterCount = 0;
    ValueType parameters[2] = {};
};

std::span<const MethodRow> methodRows() noexcept;
std::span<const PropertyRow> propertyRows() noexcept;
std::span<const SignalRow> signalRows() noexcept;

}  // namespace orvane::gtk
