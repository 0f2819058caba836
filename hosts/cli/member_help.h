#pragma once

#include <string>

#include "cli/window_steps.h"
#include "cli/words.h"
#include "control/member.h"

namespace orvane::cli {

/// How the step is written, "Blur nVal" or "PenWidth=VALUE", and a line for each parameter: two or more lines
/// to stand below a message.
[[nodiscard]] std::string usageOf(const Member& member);
[[nodiscard]] std::string usageOf(const WindowStep& step);

/// "@press X Y".
[[nodiscard]] std::string formOf(const WindowStep& step);

/// "PenWidth=Long", "LoadImage FileName -> Boolean".
[[nodiscard]] std::string signatureOf(const Member& member);

/// What `orvane members` prints: every member with its signature and one line of help.
[[nodiscard]] std::string membersPage();

/// What `orvane help NAME` prints; throws Refusal for an unknown name.
[[nodiscard]] std::string helpOn(const Word& name);

}  // namespace orvane::cli
