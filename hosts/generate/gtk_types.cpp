#include "gtk_types.h"

#include "names.h"

namespace orvane::gtk {

std::string declaration(const char* name, ValueType type) {
    const std::string words = wordsOf(name);
    switch (type) {
        case ValueType::Boolean:
            return "gboolean " + words;
        case ValueType::Byte:
            return "guint " + words;
        case ValueType::Long:
            return "int " + words;
        case ValueType::Double:
            return "double " + words;
        case ValueType::Color:
            return "const GdkRGBA* " + words;
        case ValueType::String:
            return "const char* " + words;
        case ValueType::ByteArray:
            return "const guint8* " + words + ", gsize n_" + words;
        case ValueType::LongArray:
            return "const int* " + words + ", gsize n_" + words;
        case ValueType::None:
            break;
    }
    return "void";
}

const char* resultType(ValueType type) {
    switch (type) {
        case ValueType::Boolean:
            return "gboolean ";
        case ValueType::Byte:
            return "guint ";
        case ValueType::Long:
            return "int ";
        case ValueType::Double:
            return "double ";
        case ValueType::String:
            return "char* ";
        case ValueType::ByteArray:
            return "GBytes* ";
        case ValueType::LongArray:
            return "int* ";
        case ValueType::Color:
        case ValueType::None:
            break;
    }
    return "void ";
}

const char* resultParameters(ValueType type) {
    if (type == ValueType::Color) return ", GdkRGBA* color";
    if (type == ValueType::LongArray) return ", gsize* n_values";
    return "";
}

std::string getterDeclaration(const Member& property) {
    return std::string(resultType(property.type)) + "orvane_vistrel_get_" + wordsOf(property.name) +
           "(OrvaneVistrel* self" + resultParameters(property.type) + ")";
}

std::string setterDeclaration(const Member& property) {
    return "void orvane_vistrel_set_" + wordsOf(property.name) + "(OrvaneVistrel* self, " +
           declaration("value", property.type) + ")";
}

std::string methodDeclaration(const Member& method) {
    std::string text = std::string(resultType(method.type)) + "orvane_vistrel_" + wordsOf(method.name) +
                       "(OrvaneVistrel* self";
    for (int i = 0; i < method.parameterCount(); ++i) {
        text += ", " + declaration(method.parameters[i].name, method.parameters[i].type);
    }
    return text + resultParameters(method.type) + ")";
}

}  // namespace orvane::gtk
