#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// Colour, opacity, width and dashes of lines and outlines.
[[nodiscard]] std::span<const OptionField> penOptions();

}  // namespace orvane::studio
