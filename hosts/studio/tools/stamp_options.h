#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// The picture to place, and how it covers what lies below.
[[nodiscard]] std::span<const OptionField> stampOptions();

}  // namespace orvane::studio
