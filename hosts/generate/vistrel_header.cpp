#include <string>

#include "control/member_table.h"
#include "names.h"
#include "writers.h"

namespace orvane {
namespace {

const char* argumentType(ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return "bool";
        case ValueType::Byte:
            return "std::uint8_t";
        case ValueType::Long:
            return "std::int32_t";
        case ValueType::Double:
            return "double";
        case ValueType::Color:
            return "ColorValue";
        case ValueType::String:
            return "std::u16string_view";
        case ValueType::ByteArray:
            return "std::span<const std::uint8_t>";
        case ValueType::LongArray:
            return "std::span<const std::int32_t>";
        case ValueType::None:
            break;
    }
    return "void";
}

const char* resultType(ValueType type) {
    switch (type) {
        case ValueType::String:
            return "std::u16string";
        case ValueType::ByteArray:
            return "std::vector<std::uint8_t>";
        case ValueType::LongArray:
            return "std::vector<std::int32_t>";
        default:
            return argumentType(type);
    }
}

/// What takes the result out of a Value.
const char* accessor(ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return ".boolean()";
        case ValueType::Byte:
            return ".byte()";
        case ValueType::Long:
            return ".number()";
        case ValueType::Double:
            return ".real()";
        case ValueType::Color:
            return ".color()";
        case ValueType::String:
            return ".takeString()";
        case ValueType::ByteArray:
            return ".takeBytes()";
        case ValueType::LongArray:
            return ".takeLongs()";
        case ValueType::None:
            break;
    }
    return "";
}

std::string methodText(const Member& member) {
    std::string signature, values;
    std::string text = "    /// " + std::string(member.help) + "\n";
    for (int i = 0; i < member.parameterCount(); ++i) {
        const Parameter& p = member.parameters[i];
        text += "    /// " + std::string(p.name) + ": " + p.help + ".\n";
        if (i > 0) {
            signature += ", ";
            values += ", ";
        }
        signature += std::string(argumentType(p.type)) + " " + p.name;
        values += p.name;
    }
    const bool returns = member.type != ValueType::None;
    text += "    " + std::string(resultType(member.type)) + " " + member.name + "(" + signature + ") { " +
            (returns ? "return " : "") + "call(" + hexId(member.id) + ", {" + values + "})" +
            accessor(member.type) + "; }\n";
    return text;
}

std::string propertyText(const Member& member) {
    std::string text = "    /// " + std::string(member.help);
    if (*member.range != '\0') text += " (" + std::string(member.range) + ")";
    text += "\n    " + std::string(resultType(member.type)) + " get_" + member.name +
            "() const { return getProperty(" + hexId(member.id) + ")" + accessor(member.type) + "; }\n";
    if (member.kind == Member::Kind::Property) {
        text += "    void put_" + std::string(member.name) + "(" + argumentType(member.type) +
                " value) { putProperty(" + hexId(member.id) + ", value); }\n";
    }
    return text;
}

}  // namespace

std::string vistrelHeader() {
    std::string text =
        "#pragma once\n"
        "\n"
        "// Made from the member table by orvane_generate; do not edit.\n"
        "// clang-format off\n"
        "\n"
        "#include <orvane/control_base.h>\n"
        "\n"
        "namespace orvane {\n"
        "\n"
        "/// The photo-editing control with one typed function for every member of `IVistrel`. No member "
        "fails: what it could\n"
        "/// not do shows as a false or empty result, or as unchanged state. A put outside the stated range "
        "is ignored.\n"
        "class Vistrel : public ControlBase {\n"
        " public:\n"
        "    using ControlBase::ControlBase;\n";
    for (const Member& member : memberTable()) {
        text += "\n" + (member.isMethod() ? methodText(member) : propertyText(member));
    }
    return text + "};\n\n}  // namespace orvane\n";
}

}  // namespace orvane
