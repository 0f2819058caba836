// The functions of the widget's members, and the tables from which its class is made.
#include <string>

#include "control/event_table.h"
#include "control/member_table.h"
#include "gtk_types.h"
#include "names.h"
#include "writers.h"

namespace orvane {
namespace {

const char* enumerator(ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return "ValueType::Boolean";
        case ValueType::Byte:
            return "ValueType::Byte";
        case ValueType::Long:
            return "ValueType::Long";
        case ValueType::Double:
            return "ValueType::Double";
        case ValueType::Color:
            return "ValueType::Color";
        case ValueType::String:
            return "ValueType::String";
        case ValueType::ByteArray:
            return "ValueType::ByteArray";
        case ValueType::LongArray:
            return "ValueType::LongArray";
        case ValueType::None:
            break;
    }
    return "ValueType::None";
}

std::string argument(const char* name, ValueType type) {
    const std::string words = wordsOf(name);
    const bool array = type == ValueType::ByteArray || type == ValueType::LongArray;
    return "valueOf(" + words + (array ? ", n_" + words : "") + ")";
}

/// The statement that hands over a result, given the expression that has it.
std::string answer(ValueType type, const std::string& value) {
    switch (type) {
        case ValueType::Boolean:
            return "return " + value + ".boolean()";
        case ValueType::Byte:
            return "return " + value + ".byte()";
        case ValueType::Long:
            return "return " + value + ".number()";
        case ValueType::Double:
            return "return " + value + ".real()";
        case ValueType::Color:
            return "giveColor(" + value + ", color)";
        case ValueType::String:
            return "return utf8Of(" + value + ")";
        case ValueType::ByteArray:
            return "return bytesOf(" + value + ")";
        case ValueType::LongArray:
            return "return numbersOf(" + value + ", n_values)";
        case ValueType::None:
            break;
    }
    return value;
}

/// What a function gives that was called with something else than a control.
const char* refusal(ValueType type) {
    switch (type) {
        case ValueType::None:
        case ValueType::Color:
            return "g_return_if_fail(ORVANE_IS_VISTREL(self));";
        case ValueType::String:
        case ValueType::ByteArray:
        case ValueType::LongArray:
            return "g_return_val_if_fail(ORVANE_IS_VISTREL(self), nullptr);";
        default:
            return "g_return_val_if_fail(ORVANE_IS_VISTREL(self), 0);";
    }
}

std::string function(const std::string& declaration, const char* check, const std::string& statement) {
    return declaration + " {\n    " + check + "\n    " + statement + ";\n}\n";
}

std::string methodText(const Member& method) {
    std::string arguments;
    for (int i = 0; i < method.parameterCount(); ++i) {
        arguments += (i > 0 ? ", " : "") + argument(method.parameters[i].name, method.parameters[i].type);
    }
    return function(gtk::methodDeclaration(method), refusal(method.type),
                    answer(method.type, "callMember(self, " + hexId(method.id) + ", {" + arguments + "})"));
}

std::string propertyText(const Member& property) {
    std::string text = function(gtk::getterDeclaration(property), refusal(property.type),
                                answer(property.type, "getMember(self, " + hexId(property.id) + ")"));
    if (property.kind == Member::Kind::Property) {
        text +=
            function(gtk::setterDeclaration(property), refusal(ValueType::None),
                     "putMember(self, " + hexId(property.id) + ", " + argument("value", property.type) + ")");
    }
    return text;
}

template <class Row>
std::string typesOf(const Row& row) {
    std::string types;
    for (int i = 0; i < row.parameterCount(); ++i) {
        types += std::string(i > 0 ? ", " : "") + enumerator(row.parameters[i].type);
    }
    return std::to_string(row.parameterCount()) + ", {" + types + "}";
}

std::string tables() {
    std::string methods, properties, signals;
    for (const Member& member : memberTable()) {
        const std::string head = "    {" + hexId(member.id) + ", \"" + wordsOf(member.name, '-') + "\", " +
                                 enumerator(member.type);
        if (member.isMethod()) {
            methods += head + ", " + typesOf(member) + "},\n";
        } else {
            properties += head + ", " + (member.kind == Member::Kind::Property ? "true" : "false") + ", \"" +
                          member.help + "\"},\n";
        }
    }
    for (const Event& event : eventTable()) {
        signals += "    {EventId::" + std::string(event.name()) + ", \"" + signalName(event.name()) + "\", " +
                   typesOf(event) + "},\n";
    }
    return "const MethodRow kMethods[] = {\n" + methods + "};\n\nconst PropertyRow kProperties[] = {\n" +
           properties + "};\n\nconst SignalRow kSignals[] = {\n" + signals + "};\n";
}

}  // namespace

std::string gtkSource() {
    std::string functions;
    for (const Member& member : memberTable()) {
        functions += member.isMethod() ? methodText(member) : propertyText(member);
    }
    return "// Made from the member table when the library is built.\n"
           "#include \"gtk/member_calls.h\"\n"
           "#include \"gtk/member_rows.h\"\n\n"
           "namespace orvane::gtk {\nnamespace {\n\n" +
           tables() +
           "\n}  // namespace\n\n"
           "std::span<const MethodRow> methodRows() noexcept { return kMethods; }\n"
           "std::span<const PropertyRow> propertyRows() noexcept { return kProperties; }\n"
           "std::span<const SignalRow> signalRows() noexcept { return kSignals; }\n\n"
           "}  // namespace orvane::gtk\n\n"
           "using namespace orvane::gtk;\n\n" +
           functions;
}

}  // namespace orvane
