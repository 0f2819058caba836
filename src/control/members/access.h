#pragma once

#include <utility>

#include "base/colour.h"
#include "control/member.h"
#include "control/vistrel_control.h"

/// How rows of the member table reach the control: small functions made from an operation or a field.
namespace orvane::members {

/// An argument as the operation's parameter wants it; colours arrive forced opaque.
template <class T>
T argumentAs(const Value& value) {
    if constexpr (std::is_same_v<T, double>) {
        return value.real();
    } else if constexpr (std::is_same_v<T, Argb>) {
        return opaqueFromOle(value.color().bgr);
    } else {
        static_assert(std::is_same_v<T, int>);
        return value.number();
    }
}

template <class... Parameters, std::size_t... I>
void callOperation(void (*operation)(ImageDocument&, Parameters...), ImageDocument& document,
                   [[maybe_unused]] Arguments arguments, std::index_sequence<I...>) {
    operation(document, argumentAs<Parameters>(arguments[I])...);
}

template <class... Parameters>
void callOperation(void (*operation)(ImageDocument&, Parameters...), ImageDocument& document,
                   Arguments arguments) {
    callOperation(operation, document, arguments, std::index_sequence_for<Parameters...>());
}

/// A filter: the operation on the document, then a redraw, whether or not anything changed.
template <auto Operation>
Value filter(VistrelControl& control, Arguments arguments) {
    callOperation(Operation, control.document, arguments);
    control.refresh();
    return {};
}

/// A field of the control, or of one of its settings groups, as a property of the same type.
template <auto Group, auto Field>
struct Stored {
    using T = std::remove_reference_t<decltype(std::declval<VistrelControl&>().*Group.*Field)>;
    static Value get(const VistrelControl& control) { return Value(control.*Group.*Field); }
    static void put(VistrelControl& control, const Value& value) {
        T& field = control.*Group.*Field;
        if constexpr (std::is_same_v<T, bool>) {
            field = value.boolean();
        } else if constexpr (std::is_same_v<T, std::uint8_t>) {
            field = value.byte();
        } else {
            static_assert(std::is_same_v<T, int>);
            field = value.number();
        }
    }
};

/// A colour field that is always opaque.
template <auto Group, auto Field>
struct OpaqueColour {
    static Value get(const VistrelControl& control) { return ColorValue{oleFromArgb(control.*Group.*Field)}; }
    static void put(VistrelControl& control, const Value& value) {
        control.*Group.*Field = opaqueFromOle(value.color().bgr);
    }
};

/// A colour field whose alpha byte is a property of its own.
template <auto Group, auto Field>
struct TranslucentColour {
    static Value get(const VistrelControl& control) { return ColorValue{oleFromArgb(control.*Group.*Field)}; }
    static void put(VistrelControl& control, const Value& value) {
        Argb& field = control.*Group.*Field;
        field = argbFromOleKeepingAlpha(value.color().bgr, field);
    }
};

std::span<const Member> pictureMembers() noexcept;
std::span<const Member> filterMembers() noexcept;
std::span<const Member> viewMembers() noexcept;
std::span<const Member> drawingMembers() noexcept;

}  // namespace orvane::members
