#include "studio/tools/pen_options.h"

#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

// The last one is a style that the control draws no line with.
constexpr const char* kDashes[] = {"Solid", "Dashes", "Dots", "Dash-dot", "Dash-dot-dot", "No line"};

GtkWidget* newColor(OrvaneVistrel* control) {
    return newColorField(control, {"Pen", "Pen colour", "Colour of lines and outlines"}, "pen-color");
}

GtkWidget* newOpacity(OrvaneVistrel* control) {
    return newOpacityField(control, {"", "Pen opacity", "How far the line hides what lies below"},
                           "pen-transparency");
}

GtkWidget* newWidth(OrvaneVistrel* control) {
    return newNumberField(control, {"", "Pen width", "Width of lines and outlines"}, "pen-width", 1, 8,
                          " px");
}

GtkWidget* newDashes(OrvaneVistrel* control) {
    return newChoiceField(control, {"", "Pen style", "Dashes of lines and outlines"}, "pen-style", kDashes);
}

constexpr OptionField kFields[] = {
    {ToolOptions::Ink, newColor},
    {ToolOptions::Ink, newOpacity},
    {ToolOptions::Line, newWidth},
    {ToolOptions::Line, newDashes},
};

}  // namespace

std::span<const OptionField> penOptions() { return kFields; }

}  // namespace orvane::studio
