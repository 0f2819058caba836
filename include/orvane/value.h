#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace orvane {

/// The types that cross the interface.
enum class ValueType {
    None,       ///< no value: a method without result, a null string, a null array
    Boolean,    ///< true or false
    Byte,       ///< 0..255
    Long,       ///< 32-bit signed
    Double,     ///< 64-bit float
    Color,      ///< OLE_COLOR 0x00BBGGRR; the top byte is ignored
    String,     ///< UTF-16
    ByteArray,  ///< unsigned bytes
    LongArray,  ///< 32-bit signed integers
};

/// A colour as the interface speaks it, 0x00BBGGRR; a type of its own so that it is not taken for a number.
struct ColorValue {
    std::uint32_t bgr = 0;
    friend bool operator==(const ColorValue&, const ColorValue&) = default;
};

/// One argument or result. Strings and arrays are owned copies, except the two spans, which let a caller pass
/// a large array without copying it; they must outlive the call.
class Value {
 public:
    using Bytes = std::vector<std::uint8_t>;
    using Longs = std::vector<std::int32_t>;
    using ByteSpan = std::span<const std::uint8_t>;
    using LongSpan = std::span<const std::int32_t>;

    Value() = default;
    Value(bool v) : data_(v) {}
    Value(std::uint8_t v) : data_(v) {}
    Value(std::int32_t v) : data_(v) {}
    Value(double v) : data_(v) {}
    Value(ColorValue v) : data_(v) {}
    Value(std::u16string v) : data_(std::move(v)) {}
    Value(std::u16string_view v) : data_(std::u16string(v)) {}
    Value(const char16_t* v) : data_(std::u16string(v)) {}
    Value(Bytes v) : data_(std::move(v)) {}
    Value(Longs v) : data_(std::move(v)) {}
    Value(ByteSpan v) : data_(v) {}
    Value(LongSpan v) : data_(v) {}
    /// Other pointers would silently become booleans.
    template <class T>
    Value(T*) = delete;

    [[nodiscard]] ValueType type() const noexcept {
        constexpr ValueType kTypes[] = {ValueType::None,      ValueType::Boolean,   ValueType::Byte,
                                        ValueType::Long,      ValueType::Double,    ValueType::Color,
                                        ValueType::String,    ValueType::ByteArray, ValueType::LongArray,
                                        ValueType::ByteArray, ValueType::LongArray};
        return kTypes[data_.index()];
    }
    [[nodiscard]] bool isNone() const noexcept { return data_.index() == 0; }

    /// The held value; the type must match (a mismatch gives the type's zero).
    [[nodiscard]] bool boolean() const noexcept { return get<bool>(); }
    [[nodiscard]] std::uint8_t byte() const noexcept { return get<std::uint8_t>(); }
    [[nodiscard]] std::int32_t number() const noexcept { return get<std::int32_t>(); }
    [[nodiscard]] double real() const noexcept { return get<double>(); }
    [[nodiscard]] ColorValue color() const noexcept { return get<ColorValue>(); }
    [[nodiscard]] std::u16string_view string() const noexcept {
        const auto* s = std::get_if<std::u16string>(&data_);
        return s ? std::u16string_view(*s) : std::u16string_view();
    }
    [[nodiscard]] ByteSpan bytes() const noexcept { return span<Bytes, ByteSpan>(); }
    [[nodiscard]] LongSpan longs() const noexcept { return span<Longs, LongSpan>(); }
    /// Moves an owned byte array out; empty when there is none.
    [[nodiscard]] Bytes takeBytes() noexcept { return take<Bytes>(); }
    [[nodiscard]] Longs takeLongs() noexcept { return take<Longs>(); }
    [[nodiscard]] std::u16string takeString() noexcept { return take<std::u16string>(); }

 private:
    template <class T>
    T get() const noexcept {
        const auto* v = std::get_if<T>(&data_);
        return v ? *v : T{};
    }
    template <class Owned, class Span>
    Span span() const noexcept {
        if (const auto* owned = std::get_if<Owned>(&data_)) return Span(*owned);
        return get<Span>();
    }
    template <class T>
    T take() noexcept {
        auto* v = std::get_if<T>(&data_);
        return v ? std::move(*v) : T{};
    }

    std::variant<std::monostate, bool, std::uint8_t, std::int32_t, double, ColorValue, std::u16string, Bytes,
                 Longs, ByteSpan, LongSpan>
        data_;
};

}  // namespace orvane
