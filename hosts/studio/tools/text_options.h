#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// The text to place, its font and its style.
[[nodiscard]] std::span<const OptionField> textOptions();

}  // namespace orvane::studio
