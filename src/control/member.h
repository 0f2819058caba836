#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include <orvane/value.h>

namespace orvane {

class VistrelControl;

/// When a put redraws.
enum class Refresh {
    Never,
    WhenAccepted,
    Always,       ///< also after an ignored value
    InAnyTool,    ///< while paintStatus >= 1, also after an ignored value
    InTextMode,   ///< while paintStatus = 14, also after an ignored value
    InStampMode,  ///< while paintStatus = 16, also after an ignored value
    WhenScrollWindowShows,
};

/// What a put does with a number outside its range.
enum class OutOfRange { Ignore, Clamp };

/// The numbers that a put accepts, and what follows.
struct PutRule {
    std::int32_t minimum = std::numeric_limits<std::int32_t>::min();
    std::int32_t maximum = std::numeric_limits<std::int32_t>::max();
    OutOfRange outOfRange = OutOfRange::Ignore;
    Refresh refresh = Refresh::WhenAccepted;
};

struct Parameter {
    const char* name = nullptr;
    ValueType type = ValueType::None;
    const char* help = "";  ///< meaning, unit and range, in one phrase
};

/// The arguments of one call, checked against the parameters: every one is there and has its type (None for a
/// null string or array).
using Arguments = std::span<const Value>;

/// One member of `IVistrel`: everything that names members is driven by these rows or generated from them.
struct Member {
    enum class Kind { Method, Property, ReadOnlyProperty };
    static constexpr int kMaxParameters = 5;

    int id = 0;  ///< the dispatch identifier, which hosts store
    const char* name = "";
    Kind kind = Kind::Method;
    ValueType type = ValueType::None;  ///< a method's result, or the property's type
    const char* help = "";             ///< one line
    const char* range = "";            ///< a property's unit and range, in one phrase
    Parameter parameters[kMaxParameters] = {};
    Value (*call)(VistrelControl&, Arguments) = nullptr;   ///< a method
    Value (*get)(const VistrelControl&) = nullptr;         ///< a property
    void (*put)(VistrelControl&, const Value&) = nullptr;  ///< a property that can be put
    PutRule rule = {};

    [[nodiscard]] constexpr int parameterCount() const {
        int count = 0;
        while (count < kMaxParameters && parameters[count].name != nullptr) ++count;
        return count;
    }
    [[nodiscard]] constexpr bool isMethod() const { return kind == Kind::Method; }
};

}  // namespace orvane
