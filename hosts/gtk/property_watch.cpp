#include "gtk/property_watch.h"

#include "gtk/member_rows.h"
#include "gtk/values.h"

namespace orvane::gtk {

void PropertyWatch::update(ControlBase& control, GObject* object, GParamSpec* const* properties) noexcept
    try {
    const auto rows = propertyRows();
    const bool first = values_.empty();
    values_.resize(rows.size());
    g_object_freeze_notify(object);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Value value;
        control.invoke(rows[i].id, InvokeKind::Get, {}, &value);
        if (sameValue(value, values_[i])) continue;
        values_[i] = std::move(value);
        if (!first) g_object_notify_by_pspec(object, properties[i]);
    }
    g_object_thaw_notify(object);
} catch (...) {
    // Without memory there is nothing to compare with yet; the next look tries again.
}

Value PropertyWatch::lastValue(int id) const noexcept try {
    const auto rows = propertyRows();
    for (std::size_t i = 0; i < values_.size(); ++i) {
        if (rows[i].id == id) return values_[i];
    }
    return {};
} catch (...) {
    return {};
}

}  // namespace orvane::gtk
