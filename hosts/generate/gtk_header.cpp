// The C header of the widget's members, with the comments that the introspection scanner reads.
#include <string>

#include "control/event_table.h"
#include "control/member_table.h"
#include "gtk_types.h"
#include "names.h"
#include "writers.h"

namespace orvane {
namespace {

const char* annotation(ValueType type) {
    switch (type) {
        case ValueType::String:
            return " (nullable)";
        case ValueType::Color:
            return " (not nullable)";
        default:
            return "";
    }
}

std::string parameterComment(const char* name, ValueType type, const char* help) {
    const std::string words = wordsOf(name);
    if (type != ValueType::ByteArray && type != ValueType::LongArray) {
        return " * @" + words + ":" + annotation(type) + (*annotation(type) != '\0' ? ": " : " ") + help +
               "\n";
    }
    return " * @" + words + ": (array length=n_" + words + ") (nullable): " + help + "\n * @n_" + words +
           ": length of @" + words + "\n";
}

std::string resultComment(ValueType type) {
    switch (type) {
        case ValueType::None:
        case ValueType::Color:
            return "";
        case ValueType::String:
            return " *\n * Returns: (transfer full) (nullable): the text, or %NULL\n";
        case ValueType::ByteArray:
            return " *\n * Returns: (transfer full) (nullable): the bytes, or %NULL\n";
        case ValueType::LongArray:
            return " *\n * Returns: (array length=n_values) (transfer full) (nullable): the numbers, or "
                   "%NULL\n";
        case ValueType::Boolean:
            return " *\n * Returns: the answer\n";
        default:
            return " *\n * Returns: the value\n";
    }
}

std::string resultParameterComment(ValueType type) {
    if (type == ValueType::Color)
        return " * @color: (out caller-allocates): place for the colour, which is opaque\n";
    if (type == ValueType::LongArray) return " * @n_values: (out): how many numbers there are\n";
    return "";
}

/// `annotations` stand behind the name.
std::string comment(const std::string& name, const std::string& parameters, const std::string& text,
                    const std::string& result, const std::string& annotations = "") {
    return "/**\n * " + name + ":" + annotations + "\n" + parameters + " *\n * " + text + "\n" + result +
           " */\n";
}

std::string methodText(const Member& method) {
    std::string parameters = " * @self: the control\n";
    for (int i = 0; i < method.parameterCount(); ++i) {
        const Parameter& parameter = method.parameters[i];
        parameters += parameterComment(parameter.name, parameter.type, parameter.help);
    }
    parameters += resultParameterComment(method.type);
    return comment("orvane_vistrel_" + wordsOf(method.name), parameters, method.help,
                   resultComment(method.type)) +
           "ORVANE_GTK_EXPORT " + gtk::methodDeclaration(method) + ";\n\n";
}

std::string meaningOf(const Member& property) {
    return *property.range == '\0' ? property.help : std::string(property.help) + " (" + property.range + ")";
}

std::string propertyText(const Member& property) {
    const std::string words = wordsOf(property.name), meaning = meaningOf(property);
    const bool canPut = property.kind == Member::Kind::Property;
    const std::string get = "get_" + words, set = "set_" + words;
    std::string text = comment("OrvaneVistrel:" + wordsOf(property.name, '-'), "", meaning, "",
                               " (getter " + get + ")" + (canPut ? " (setter " + set + ")" : ""));
    text += comment("orvane_vistrel_" + get,
                    " * @self: the control\n" + resultParameterComment(property.type), meaning,
                    resultComment(property.type), " (get-property " + wordsOf(property.name, '-') + ")") +
            "ORVANE_GTK_EXPORT " + gtk::getterDeclaration(property) + ";\n\n";
    if (!canPut) return text;
    return text +
           comment("orvane_vistrel_" + set,
                   " * @self: the control\n" + parameterComment("value", property.type, "the new value"),
                   meaning, "", " (set-property " + wordsOf(property.name, '-') + ")") +
           "ORVANE_GTK_EXPORT " + gtk::setterDeclaration(property) + ";\n\n";
}

std::string signalText(const Event& event) {
    std::string parameters = " * @self: the control\n";
    for (int i = 0; i < event.parameterCount(); ++i) {
        parameters += " * @" + wordsOf(event.parameters[i].name) + ": " + event.parameters[i].help + "\n";
    }
    return comment("OrvaneVistrel::" + signalName(event.name()), parameters, event.help, "") + "\n";
}

}  // namespace

std::string gtkHeader() {
    std::string text =
        "#pragma once\n\n"
        "/* Made from the member table when the library was built. Included by orvane-gtk.h. */\n\n"
        "G_BEGIN_DECLS\n\n";
    for (const Event& event : eventTable()) text += signalText(event);
    for (const Member& member : memberTable())
        text += member.isMethod() ? methodText(member) : propertyText(member);
    return text + "G_END_DECLS\n";
}

}  // namespace orvane
