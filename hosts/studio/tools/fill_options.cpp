#include "studio/tools/fill_options.h"

#include "studio/tools/hatch_names.h"
#include "studio/tools/property_fields.h"
#include "studio/tools/property_stack.h"
#include "studio/tools/texture_button.h"

namespace orvane::studio {
namespace {

constexpr const char* kStyle = "brush-style";
constexpr unsigned kSolid = 1U << 0, kGradient = 1U << 1, kHatch = 1U << 2, kTexture = 1U << 3;

// The last one is a style that the control fills nothing with.
constexpr const char* kKinds[] = {"Solid", "Gradient", "Hatch", "Texture", "None"};
constexpr const char* kDirections[] = {"To right", "Downward", "Falling", "Rising"};
constexpr const char* kWraps[] = {"Tiles", "Mirrored sideways", "Mirrored up and down", "Mirrored both ways"};

GtkWidget* newKind(OrvaneVistrel* control) {
    return newChoiceField(control, {"Fill", "Fill", "What shapes and letters are filled with"}, "brush-style",
                          kKinds);
}

GtkWidget* newFirstColor(OrvaneVistrel* control) {
    return newColorField(control, {"", "Fill colour", "Colour of the fill; of a hatch, its ground"},
                         "brush-color1");
}

GtkWidget* newSecondColor(OrvaneVistrel* control) {
    return newColorField(control, {"", "Second fill colour", "Where a gradient ends; the lines of a hatch"},
                         "brush-color2");
}

GtkWidget* newDirection(OrvaneVistrel* control) {
    return newChoiceField(control, {"", "Gradient direction", "Where the gradient runs to"},
                          "brush-gradient-style", kDirections);
}

GtkWidget* newHatch(OrvaneVistrel* control) {
    return newChoiceField(control, {"", "Hatch pattern", "Pattern of the hatch"}, "brush-hatch-style",
                          hatchNames());
}

GtkWidget* newWrap(OrvaneVistrel* control) {
    return newChoiceField(control, {"", "Texture repeat", "How the texture's picture repeats"},
                          "brush-texture-style", kWraps);
}

GtkWidget* newOpacity(OrvaneVistrel* control) {
    return newOpacityField(control, {"", "Fill opacity", "How far the fill hides what lies below"},
                           "brush-transparency");
}

/// What the fill is made of.
GtkWidget* newMatter(OrvaneVistrel* control) {
    GtkWidget* colors = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    gtk_box_append(GTK_BOX(colors), newFirstColor(control));
    gtk_box_append(GTK_BOX(colors),
                   newPropertyStack(control, kStyle, {{kGradient | kHatch, newSecondColor(control)}}));
    return newPropertyStack(control, kStyle,
                            {{kSolid | kGradient | kHatch, colors}, {kTexture, newTextureButton(control)}});
}

/// How that is spread.
GtkWidget* newSpread(OrvaneVistrel* control) {
    return newPropertyStack(
        control, kStyle,
        {{kGradient, newDirection(control)}, {kHatch, newHatch(control)}, {kTexture, newWrap(control)}});
}

constexpr OptionField kFields[] = {
    {ToolOptions::Fill, newKind},
    {ToolOptions::Fill, newOpacity},
    {ToolOptions::Fill, newMatter},
    {ToolOptions::Fill, newSpread},
};

}  // namespace

std::span<const OptionField> fillOptions() { return kFields; }

}  // namespace orvane::studio
