#pragma once

#include <span>
#include <string_view>

#include "cli/exit_status.h"
#include "control/member.h"

namespace orvane::cli {

class Session;
struct Step;

/// What a step does with the one file that it names.
enum class FileUse {
    None,
    ReadsPicture,   ///< the member opens it: it must be a regular file
    ReadsBytes,     ///< raw bytes for an array, from anything readable
    WritesPicture,  ///< the format follows from the extension
    WritesBytes,    ///< an array as raw bytes
};

/// How many arguments a window step takes.
enum class ParameterUse {
    Exact,
    LastOptional,  ///< the last parameter may be left out
    PairsToEnd,    ///< the two parameters again and again, at least twice, closed by "@end"
};

/// A step that is no member: a message of the window or a look at it.
struct WindowStep {
    const char* name = "";  ///< with its @
    const char* help = "";
    Parameter parameters[2] = {};
    int lowest = 0, highest = 0;  ///< the numbers that Long parameters take
    ParameterUse parameterUse = ParameterUse::Exact;
    FileUse fileUse = FileUse::None;  ///< of the String parameter
    ExitStatus (*run)(Session&, const Step&) = nullptr;
};

[[nodiscard]] std::span<const WindowStep> windowSteps() noexcept;
[[nodiscard]] const WindowStep* findWindowStep(std::string_view name) noexcept;

}  // namespace orvane::cli
