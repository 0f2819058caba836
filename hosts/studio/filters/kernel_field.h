#pragma once

#include "studio/filters/filter_fields.h"

namespace orvane::studio {

/// A grid of weights, 3 x 3 or 5 x 5; at first a kernel that sharpens.
[[nodiscard]] std::unique_ptr<FilterField> newKernelField(FormDialog& form, const FilterParameter& parameter,
                                                          const std::function<void()>& changed);

}  // namespace orvane::studio
