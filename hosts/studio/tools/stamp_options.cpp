#include "studio/tools/stamp_options.h"

#include "studio/tools/command_button.h"
#include "studio/tools/property_fields.h"
#include "studio/tools/property_stack.h"

namespace orvane::studio {
namespace {

constexpr unsigned kShaded = 0b111'1110;  // all patterns that have a second opacity
constexpr const char* kPatterns[] = {"Even",
                                     "Shaded downward",
                                     "Shaded to the right",
                                     "Shaded from top left",
                                     "Shaded from top right",
                                     "Shaded from the middle",
                                     "Round"};

GtkWidget* newPlaceButton(OrvaneVistrel*) {
    return newCommandButton({"Picture…", "Choose a picture file to place"}, "win.place-picture");
}

GtkWidget* newPasteButton(OrvaneVistrel*) {
    return newCommandButton({"Paste", "Place the clipboard's picture"}, "win.paste");
}

GtkWidget* newPattern(OrvaneVistrel* control) {
    return newChoiceField(control,
                          {"Opacity", "Opacity pattern", "How the placed picture's opacity is spread"},
                          "image-style", kPatterns);
}

GtkWidget* newFirstOpacity(OrvaneVistrel* control) {
    return newOpacityField(control, {"", "First opacity", "Opacity where the pattern begins"},
                           "image-transparency1");
}

GtkWidget* newSecondOpacity(OrvaneVistrel* control) {
    const FieldText text{"to", "Second opacity", "Opacity where the pattern ends"};
    return newPropertyStack(control, "image-style",
                            {{kShaded, newOpacityField(control, text, "image-transparency2")}});
}

GtkWidget* newMask(OrvaneVistrel* control) {
    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    GtkWidget* check = newCheckField(
        control,
        {"Leave out", "Leave out a colour", "Whether a colour of the placed picture is seen through"},
        "use-image-mask-color");
    GtkWidget* color = newColorField(control, {"", "Colour left out", "The colour that is seen through"},
                                     "image-mask-color");
    g_object_bind_property(check, "active", color, "sensitive", G_BINDING_SYNC_CREATE);
    gtk_box_append(GTK_BOX(row), check);
    gtk_box_append(GTK_BOX(row), color);
    return row;
}

constexpr OptionField kFields[] = {
    {ToolOptions::Stamp, newPlaceButton},   {ToolOptions::Stamp, newPasteButton},
    {ToolOptions::Stamp, newPattern},       {ToolOptions::Stamp, newFirstOpacity},
    {ToolOptions::Stamp, newSecondOpacity}, {ToolOptions::Stamp, newMask},
};

}  // namespace

std::span<const OptionField> stampOptions() { return kFields; }

}  // namespace orvane::studio
