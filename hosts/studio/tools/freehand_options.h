#pragma once

#include <span>

#include "studio/tools/option_field.h"

namespace orvane::studio {

/// The brush, the spray and the eraser.
[[nodiscard]] std::span<const OptionField> freehandOptions();

}  // namespace orvane::studio
