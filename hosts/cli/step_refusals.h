#pragma once

#include <string>
#include <string_view>

#include "cli/refusal.h"
#include "cli/step.h"

namespace orvane::cli {

/// How the step is written, to stand below a message.
[[nodiscard]] std::string usageOf(const Step& step);

/// Fewer arguments follow the step than it takes.
[[noreturn]] void refuseCount(const Step& step, std::size_t expected, std::size_t given);
/// An argument that does not have the form of its type.
[[noreturn]] void refuseArgument(const Step& step, const Word& word, const Parameter& parameter);
/// A number where a step should begin, after a step that is complete.
[[noreturn]] void refuseSurplus(const Word& word, const Step& before);
/// A word that begins no step; `name` is the part of it that should have been a name.
[[noreturn]] void refuseUnknown(const Word& word, std::string_view name);

}  // namespace orvane::cli
