#include "studio/tools/freehand_options.h"

#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

constexpr const char* kNibs[] = {"Level bar", "Falling bar", "Upright bar", "Rising bar", "Square", "Circle"};

GtkWidget* newBrushColor(OrvaneVistrel* control) {
    return newColorField(control, {"Paint", "Brush colour", "Colour of the brush"}, "brush-color1");
}

GtkWidget* newNib(OrvaneVistrel* control) {
    return newChoiceField(control, {"Nib", "Brush nib", "Shape of the brush"}, "tool-brush-style", kNibs);
}

GtkWidget* newBrushSize(OrvaneVistrel* control) {
    return newNumberField(control, {"Size", "Brush size", "How far the brush reaches on every side"},
                          "tool-brush-size", 1, 11, " px");
}

GtkWidget* newSprayRadius(OrvaneVistrel* control) {
    return newNumberField(control, {"Radius", "Spray radius", "Radius of the spray"}, "spray-radius", 8, 50,
                          " px");
}

GtkWidget* newEraserSize(OrvaneVistrel* control) {
    return newNumberField(control, {"Size", "Eraser size", "How far the eraser reaches on every side"},
                          "eraser-size", 1, 11, " px");
}

constexpr OptionField kFields[] = {
    {ToolOptions::Nib, newBrushColor},    {ToolOptions::Nib, newNib},
    {ToolOptions::Nib, newBrushSize},     {ToolOptions::Spray, newSprayRadius},
    {ToolOptions::Eraser, newEraserSize},
};

}  // namespace

std::span<const OptionField> freehandOptions() { return kFields; }

}  // namespace orvane::studio
