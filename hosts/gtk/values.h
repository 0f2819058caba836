#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <gtk/gtk.h>

#include <orvane/value.h>

/// The control's values in GLib's types and back. Nothing here throws; what there is no memory for becomes
/// None.
namespace orvane::gtk {

[[nodiscard]] Value valueOf(int number) noexcept;  ///< booleans too, which GLib makes ints
[[nodiscard]] Value valueOf(guint number) noexcept;
[[nodiscard]] Value valueOf(double number) noexcept;
/// The colour, whose alpha is not looked at; components outside 0 to 1 are clamped. Null is black.
[[nodiscard]] Value valueOf(const GdkRGBA* colour) noexcept;
/// None for null and for what is not UTF-8.
[[nodiscard]] Value valueOf(const char* text) noexcept;
/// Views of the arrays; None for null.
[[nodiscard]] Value valueOf(const guint8* bytes, gsize count) noexcept;
[[nodiscard]] Value valueOf(const int* numbers, gsize count) noexcept;

void giveColor(const Value& value, GdkRGBA* colour) noexcept;
/// The text, to be freed with g_free; null for None.
[[nodiscard]] char* utf8Of(const Value& value) noexcept;
[[nodiscard]] GBytes* bytesOf(Value value) noexcept;
[[nodiscard]] int* numbersOf(const Value& value, gsize* count) noexcept;

[[nodiscard]] bool sameValue(const Value& a, const Value& b) noexcept;

/// The GObject types of properties and signal arguments.
[[nodiscard]] GType gtypeOf(ValueType type) noexcept;
/// Into an initialised GValue of that type, and out of one.
void toGValue(const Value& value, GValue* target) noexcept;
[[nodiscard]] Value fromGValue(const GValue* source) noexcept;

/// A method's argument; nothing when the variant is of another kind. Arrays are copied.
[[nodiscard]] std::optional<Value> fromVariant(GVariant* variant, ValueType type) noexcept;
/// A floating variant, or null for None.
[[nodiscard]] GVariant* toVariant(const Value& value) noexcept;

}  // namespace orvane::gtk
