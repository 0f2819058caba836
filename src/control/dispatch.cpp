#include "control/dispatch.h"

#include <array>
#include <limits>

#include "control/member_table.h"
#include "control/paint_mode.h"

namespace orvane {
namespace {

bool isNumber(ValueType type) {
    return type == ValueType::Boolean || type == ValueType::Byte || type == ValueType::Long ||
           type == ValueType::Double || type == ValueType::Color;
}

/// Any number as a double, which holds each of them exactly.
double numberOf(const Value& value) {
    switch (value.type()) {
        case ValueType::Boolean:
            return value.boolean() ? -1.0 : 0.0;  // automation's true has all bits set
        case ValueType::Byte:
            return value.byte();
        case ValueType::Long:
            return value.number();
        case ValueType::Color:
            return value.color().bgr;
        default:
            return value.real();
    }
}

DispatchStatus convertNumber(const Value& from, ValueType type, Value& to) {
    const double number = numberOf(from);
    if (type == ValueType::Double) {
        to = Value(number);
        return DispatchStatus::Success;
    }
    if (from.type() == ValueType::Double) return DispatchStatus::ArgumentType;  // a fraction would be lost
    const auto fits = [number](double lowest, double highest) {
        return lowest <= number && number <= highest;
    };
    switch (type) {
        case ValueType::Boolean:
            to = Value(number != 0);
            return DispatchStatus::Success;
        case ValueType::Byte:
            if (!fits(0, 255)) return DispatchStatus::ArgumentRange;
            to = Value(static_cast<std::uint8_t>(number));
            return DispatchStatus::Success;
        case ValueType::Long:
            if (!fits(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max())) {
                return DispatchStatus::ArgumentRange;
            }
            to = Value(static_cast<std::int32_t>(number));
            return DispatchStatus::Success;
        case ValueType::Color:  // negative numbers are colours whose ignored top byte is set
            to = Value(ColorValue{static_cast<std::uint32_t>(static_cast<std::int64_t>(number))});
            return DispatchStatus::Success;
        default:
            return DispatchStatus::ArgumentType;
    }
}

bool canBeNull(ValueType type) {
    return type == ValueType::String || type == ValueType::ByteArray || type == ValueType::LongArray;
}

/// The argument as the parameter's type: itself, or its conversion held in `converted`.
DispatchStatus fitArgument(const Value& argument, ValueType type, const Value*& fitted, Value& converted) {
    fitted = &argument;
    if (argument.type() == type || (argument.isNone() && canBeNull(type))) return DispatchStatus::Success;
    if (!isNumber(argument.type()) || !isNumber(type)) return DispatchStatus::ArgumentType;
    fitted = &converted;
    return convertNumber(argument, type, converted);
}

bool putRedraws(const VistrelControl& control, Refresh refresh, bool accepted) {
    switch (refresh) {
        case Refresh::Never:
            return false;
        case Refresh::WhenAccepted:
            return accepted;
        case Refresh::Always:
            return true;
        case Refresh::InAnyTool:
            return control.paintStatus >= 1;
        case Refresh::InTextMode:
            return control.paintStatus == PaintMode::Text;
        case Refresh::InStampMode:
            return control.paintStatus == PaintMode::ImageStamp;
        case Refresh::WhenScrollWindowShows:
            return control.scrollWindow.visible;
    }
    return false;
}

void putProperty(VistrelControl& control, const Member& member, const Value& value) {
    const PutRule& rule = member.rule;
    const bool ranged = value.type() == ValueType::Long || value.type() == ValueType::Byte;
    const std::int32_t number = value.type() == ValueType::Byte ? value.byte() : value.number();
    const bool inRange = !ranged || (rule.minimum <= number && number <= rule.maximum);
    const bool accepted = inRange || rule.outOfRange == OutOfRange::Clamp;
    if (accepted) {
        if (inRange) {
            member.put(control, value);
        } else {
            member.put(control, Value(number < rule.minimum ? rule.minimum : rule.maximum));
        }
    }
    if (putRedraws(control, rule.refresh, accepted)) control.refresh();
}

bool offers(const Member& member, InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Method:
            return member.isMethod();
        case InvokeKind::Get:
            return !member.isMethod();
        case InvokeKind::Put:
            return member.kind == Member::Kind::Property;
    }
    return false;
}

Value callMethod(VistrelControl& control, const Member& member, Arguments arguments) {
    std::array<Value, Member::kMaxParameters> fitted;
    bool converted = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        converted |= arguments[i].type() != member.parameters[i].type && !arguments[i].isNone();
    }
    if (!converted) return member.call(control, arguments);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const Value* value = nullptr;
        (void)fitArgument(arguments[i], member.parameters[i].type, value, fitted[i]);
        if (value != &fitted[i]) fitted[i] = *value;
    }
    return member.call(control, Arguments(fitted.data(), arguments.size()));
}

/// Judges every argument before the member is reached.
DispatchResult checkArguments(const Member& member, InvokeKind kind, Arguments arguments) {
    const std::size_t expected = kind == InvokeKind::Method ? std::size_t(member.parameterCount())
                                 : kind == InvokeKind::Put  ? 1
                                                            : 0;
    if (arguments.size() != expected) return {DispatchStatus::ArgumentCount, -1};
    for (std::size_t i = 0; i < expected; ++i) {
        const ValueType type = kind == InvokeKind::Put ? member.type : member.parameters[i].type;
        const Value* fitted = nullptr;
        Value converted;
        const DispatchStatus status = fitArgument(arguments[i], type, fitted, converted);
        if (status != DispatchStatus::Success) return {status, int(i)};
    }
    return {};
}

Value run(VistrelControl& control, const Member& member, InvokeKind kind, Arguments arguments) {
    switch (kind) {
        case InvokeKind::Method:
            return callMethod(control, member, arguments);
        case InvokeKind::Get:
            return member.get(control);
        case InvokeKind::Put: {
            Value converted;
            const Value* value = nullptr;
            (void)fitArgument(arguments[0], member.type, value, converted);
            if (member.put != nullptr) putProperty(control, member, *value);
            return {};
        }
    }
    return {};
}

/// What a call answers that there was no memory for: false, or a null string or array.
Value nothingOf(ValueType type) { return type == ValueType::Boolean ? Value(false) : Value(); }

}  // namespace

DispatchResult invoke(VistrelControl& control, const Member& member, InvokeKind kind, Arguments arguments,
                      Value* result) noexcept {
    if (!offers(member, kind)) return {DispatchStatus::MemberNotFound, -1};
    if (result != nullptr) *result = nothingOf(kind == InvokeKind::Put ? ValueType::None : member.type);
    try {
        const DispatchResult check = checkArguments(member, kind, arguments);
        if (!check) return check;
        Value answer = run(control, member, kind, arguments);
        if (result != nullptr) *result = std::move(answer);
    } catch (...) {
        // Memory ran out: the command is dropped.
    }
    return {};
}

DispatchResult invoke(VistrelControl& control, int id, InvokeKind kind, Arguments arguments,
                      Value* result) noexcept {
    const Member* member = findMember(id);
    if (member == nullptr) return {DispatchStatus::MemberNotFound, -1};
    return invoke(control, *member, kind, arguments, result);
}

}  // namespace orvane
