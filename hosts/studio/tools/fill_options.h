#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// What shapes and letters are filled with.
[[nodiscard]] std::span<const OptionField> fillOptions();

}  // namespace orvane::studio
