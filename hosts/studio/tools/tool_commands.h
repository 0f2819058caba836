#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// The commands that end what a tool has begun.
[[nodiscard]] std::span<const OptionField> toolCommands();

}  // namespace orvane::studio
