#pragma once

#include <string>

#include "control/member.h"

/// How the widget's C interface writes the types and functions of the member table.
namespace orvane::gtk {

/// A parameter's declaration: "int n_val", or "const int* pp_array, gsize n_pp_array" for an array.
std::string declaration(const char* name, ValueType type);
/// The function's result type: "void", "gboolean", "char*" and so on. Colours come back through a parameter.
const char* resultType(ValueType type);
/// What the function takes behind its other parameters to give its result: ", gsize* n_values" and so on.
const char* resultParameters(ValueType type);

/// The functions of a property.
std::string getterDeclaration(const Member& property);
std::string setterDeclaration(const Member& property);
std::string methodDeclaration(const Member& method);

}  // namespace orvane::gtk
