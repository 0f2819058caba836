#pragma once

#include <vector>

#include <glib-object.h>

#include <orvane/control_base.h>

namespace orvane::gtk {

/// Knows what every property held last, so that all changes notify, whatever has made them: a member, the
/// mouse, the history, another program's clipboard.
class PropertyWatch {
 public:
    /// Looks at the control and notifies of what is not as it was. `properties` are the specifications in the
    /// order of propertyRows().
    void update(ControlBase& control, GObject* object, GParamSpec* const* properties) noexcept;
    /// What the property held at the last look; None before the first.
    [[nodiscard]] Value lastValue(int id) const noexcept;

 private:
    std::vector<Value> values_;  ///< in the order of propertyRows()
};

}  // namespace orvane::gtk
