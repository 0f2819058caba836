#pragma once

#include <span>

#include "cli/step.h"
#include "cli/words.h"

namespace orvane::cli {

/// Reads the words of the command line, and of the step files that they name, as steps. Every name, argument
/// count, type and number is checked; no picture is opened yet. Throws Refusal.
[[nodiscard]] Script parseScript(std::span<const Word> words);

}  // namespace orvane::cli
