#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "studio/filters/filter_table.h"
#include "studio/support/form_dialog.h"

namespace orvane::studio {

/// The size of the picture that a filter is to work on, in pixels.
struct PictureSize {
    int width, height;
};

/// What a dialog shows for one parameter of a filter.
class FilterField {
 public:
    virtual ~FilterField() = default;
    /// Adds the argument, or arguments, to the tuple.
    virtual void addTo(GVariantBuilder* arguments) const = 0;
};

/// Adds the field for a parameter to the form. `changed` is called whenever it has another value.
[[nodiscard]] std::unique_ptr<FilterField> newFilterField(FormDialog& form, const FilterParameter& parameter,
                                                          PictureSize size,
                                                          const std::function<void()>& changed);

}  // namespace orvane::studio
