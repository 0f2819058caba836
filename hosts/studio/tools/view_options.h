#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// How the view around the picture looks, and what is measured in it.
[[nodiscard]] std::span<const OptionField> viewOptions();

}  // namespace orvane::studio
