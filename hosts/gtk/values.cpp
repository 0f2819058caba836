#include "gtk/values.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace orvane::gtk {
namespace {

static_assert(sizeof(gunichar2) == sizeof(char16_t));

unsigned levelOf(float component) noexcept {
    return unsigned(std::lround(std::clamp(component, 0.0F, 1.0F) * 255.0F));
}

float componentOf(std::uint32_t level) noexcept { return float(level & 255U) / 255.0F; }

Value textValue(const char* text) {
    glong length = 0;
    gunichar2* converted = g_utf8_to_utf16(text, -1, nullptr, &length, nullptr);
    if (converted == nullptr) return {};
    Value value(std::u16string(converted, converted + length));
    g_free(converted);
    return value;
}

/// Runs what may find no memory.
template <class Make>
Value made(Make make) noexcept {
    try {
        return make();
    } catch (...) {
        return {};
    }
}

template <class T>
std::vector<T> elementsOf(GVariant* variant) {
    gsize count = 0;
    const void* first = g_variant_get_fixed_array(variant, &count, sizeof(T));
    std::vector<T> elements(count);
    if (count > 0) std::memcpy(elements.data(), first, count * sizeof(T));
    return elements;
}

}  // namespace

Value valueOf(int number) noexcept { return {std::int32_t(number)}; }
Value valueOf(guint number) noexcept { return {std::int32_t(std::min(number, guint(G_MAXINT)))}; }
Value valueOf(double number) noexcept { return {number}; }

Value valueOf(const GdkRGBA* colour) noexcept {
    if (colour == nullptr) return {ColorValue{}};
    return {ColorValue{levelOf(colour->red) | (levelOf(colour->green) << 8) | (levelOf(colour->blue) << 16)}};
}

Value valueOf(const char* text) noexcept {
    if (text == nullptr) return {};
    return made([text] { return textValue(text); });
}

Value valueOf(const guint8* bytes, gsize count) noexcept {
    if (bytes == nullptr) return {};
    return {Value::ByteSpan(bytes, count)};
}

Value valueOf(const int* numbers, gsize count) noexcept {
    if (numbers == nullptr) return {};
    return {Value::LongSpan(numbers, count)};
}

void giveColor(const Value& value, GdkRGBA* colour) noexcept {
    if (colour == nullptr) return;
    const std::uint32_t bgr = value.color().bgr;
    *colour = {componentOf(bgr), componentOf(bgr >> 8), componentOf(bgr >> 16), 1.0F};
}

char* utf8Of(const Value& value) noexcept {
    if (value.type() != ValueType::String) return nullptr;
    const std::u16string_view text = value.string();
    const auto* units = reinterpret_cast<const gunichar2*>(text.data());
    return g_utf16_to_utf8(units, glong(text.size()), nullptr, nullptr, nullptr);
}

GBytes* bytesOf(Value value) noexcept {
    if (value.type() != ValueType::ByteArray) return nullptr;
    auto* owned = new (std::nothrow) Value::Bytes(value.takeBytes());
    if (owned == nullptr) return nullptr;
    const auto drop = [](gpointer bytes) { delete static_cast<Value::Bytes*>(bytes); };
    return g_bytes_new_with_free_func(owned->data(), owned->size(), drop, owned);
}

int* numbersOf(const Value& value, gsize* count) noexcept {
    const Value::LongSpan numbers = value.longs();
    int* copy =
        value.isNone() ? nullptr : static_cast<int*>(g_try_malloc(std::max<gsize>(numbers.size_bytes(), 1)));
    if (copy != nullptr) std::copy(numbers.begin(), numbers.end(), copy);
    if (count != nullptr) *count = copy != nullptr ? numbers.size() : 0;
    return copy;
}

bool sameValue(const Value& a, const Value& b) noexcept {
    if (a.type() != b.type()) return false;
    switch (a.type()) {
        case ValueType::None:
            return true;
        case ValueType::Boolean:
            return a.boolean() == b.boolean();
        case ValueType::Byte:
            return a.byte() == b.byte();
        case ValueType::Long:
            return a.number() == b.number();
        case ValueType::Double:
            return a.real() == b.real();
        case ValueType::Color:
            return a.color() == b.color();
        case ValueType::String:
            return a.string() == b.string();
        case ValueType::ByteArray:
        case ValueType::LongArray:
            break;
    }
    return false;  // no property is an array
}

GType gtypeOf(ValueType type) noexcept {
    switch (type) {
        case ValueType::Boolean:
            return G_TYPE_BOOLEAN;
        case ValueType::Byte:
            return G_TYPE_UINT;
        case ValueType::Long:
            return G_TYPE_INT;
        case ValueType::Double:
            return G_TYPE_DOUBLE;
        case ValueType::Color:
            return GDK_TYPE_RGBA;
        case ValueType::String:
            return G_TYPE_STRING;
        case ValueType::None:
        case ValueType::ByteArray:
        case ValueType::LongArray:
            break;
    }
    return G_TYPE_NONE;
}

void toGValue(const Value& value, GValue* target) noexcept {
    switch (G_VALUE_TYPE(target)) {
        case G_TYPE_BOOLEAN:
            return g_value_set_boolean(target, value.boolean());
        case G_TYPE_UINT:
            return g_value_set_uint(target, value.byte());
        case G_TYPE_INT:
            return g_value_set_int(target, value.number());
        case G_TYPE_DOUBLE:
            return g_value_set_double(target, value.real());
        case G_TYPE_STRING:
            return g_value_take_string(target, utf8Of(value));
        default:
            GdkRGBA colour;
            giveColor(value, &colour);
            return g_value_set_boxed(target, &colour);
    }
}

Value fromGValue(const GValue* source) noexcept {
    switch (G_VALUE_TYPE(source)) {
        case G_TYPE_BOOLEAN:
            return {g_value_get_boolean(source) != FALSE};
        case G_TYPE_UINT:
            return valueOf(g_value_get_uint(source));
        case G_TYPE_INT:
            return valueOf(g_value_get_int(source));
        case G_TYPE_DOUBLE:
            return {g_value_get_double(source)};
        case G_TYPE_STRING:
            return valueOf(g_value_get_string(source));
        default:
            return valueOf(static_cast<const GdkRGBA*>(g_value_get_boxed(source)));
    }
}

std::optional<Value> fromVariant(GVariant* variant, ValueType type) noexcept try {
    const auto is = [variant](const char* kind) {
        return g_variant_is_of_type(variant, G_VARIANT_TYPE(kind)) != FALSE;
    };
    switch (type) {
        case ValueType::Boolean:
            if (is("b")) return Value(g_variant_get_boolean(variant) != FALSE);
            break;
        case ValueType::Byte:
        case ValueType::Long:
            if (is("i")) return Value(std::int32_t(g_variant_get_int32(variant)));
            break;
        case ValueType::Double:
            if (is("d")) return Value(g_variant_get_double(variant));
            break;
        case ValueType::Color:
            if (is("u")) return Value(ColorValue{GUINT32_SWAP_LE_BE(g_variant_get_uint32(variant) << 8)});
            break;
        case ValueType::String:
            if (is("s")) return valueOf(g_variant_get_string(variant, nullptr));
            break;
        case ValueType::ByteArray:
            if (is("ay")) return Value(elementsOf<std::uint8_t>(variant));
            break;
        case ValueType::LongArray:
            if (is("ai")) return Value(elementsOf<std::int32_t>(variant));
            break;
        case ValueType::None:
            break;
    }
    return std::nullopt;
} catch (...) {
    return std::nullopt;
}

GVariant* toVariant(const Value& value) noexcept {
    switch (value.type()) {
        case ValueType::Boolean:
            return g_variant_new_boolean(value.boolean());
        case ValueType::ByteArray:
            return g_variant_new_fixed_array(G_VARIANT_TYPE_BYTE, value.bytes().data(), value.bytes().size(),
                                             1);
        case ValueType::LongArray:
            return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, value.longs().data(), value.longs().size(),
                                             sizeof(std::int32_t));
        default:
            return nullptr;
    }
}

}  // namespace orvane::gtk
