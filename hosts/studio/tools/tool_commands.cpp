#include "studio/tools/tool_commands.h"

#include "studio/tools/command_button.h"
#include "studio/tools/property_fields.h"

namespace orvane::studio {
namespace {

GtkWidget* newAcceptAndDrop(const CommandText& accept) {
    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    GtkWidget* button = newCommandButton(accept, "win.accept");
    gtk_widget_add_css_class(button, "suggested-action");
    gtk_box_append(GTK_BOX(row), button);
    gtk_box_append(GTK_BOX(row), newCommandButton({"Drop", "Drop what is placed (Escape)"}, "win.drop"));
    return row;
}

GtkWidget* newDraw(OrvaneVistrel*) {
    return newAcceptAndDrop({"Draw", "Draw what is placed into the picture (Enter)"});
}

GtkWidget* newCrop(OrvaneVistrel*) {
    return newAcceptAndDrop({"Crop", "Cut the picture down to the frame (Enter)"});
}

GtkWidget* newDeselect(OrvaneVistrel*) {
    return newCommandButton({"Select Nothing", "Drop the selection (Escape)"}, "win.drop");
}

GtkWidget* newSelectAll(OrvaneVistrel*) {
    return newCommandButton({"Select All", "Select the whole picture"}, "win.select-all");
}

GtkWidget* newCopy(OrvaneVistrel*) {
    return newCommandButton({"Copy", "Copy the selection to the clipboard"}, "win.copy");
}

GtkWidget* newCut(OrvaneVistrel*) {
    return newCommandButton({"Cut", "Copy the selection to the clipboard and fill it"}, "win.cut");
}

GtkWidget* newCutColor(OrvaneVistrel* control) {
    return newColorField(control, {"Paper", "Paper colour", "Colour that a cut leaves, and of new pictures"},
                         "bitmap-back-color");
}

// The control's own bar applies a rotation; leaving the mode takes it back.
void leaveRotation(GtkButton*, gpointer control) {
    orvane_vistrel_set_paint_status(static_cast<OrvaneVistrel*>(control), 0);
}

GtkWidget* newRotationCancel(OrvaneVistrel* control) {
    GtkWidget* button = gtk_button_new_with_label("Cancel");
    gtk_widget_set_tooltip_text(button, "Leave the picture as it was and put the tool away");
    g_signal_connect_object(button, "clicked", G_CALLBACK(leaveRotation), control, GConnectFlags(0));
    return button;
}

constexpr OptionField kFields[] = {
    {ToolOptions::Draw, newDraw},           {ToolOptions::Crop, newCrop},
    {ToolOptions::Selection, newSelectAll}, {ToolOptions::Selection, newDeselect},
    {ToolOptions::Selection, newCopy},      {ToolOptions::Selection, newCut},
    {ToolOptions::Selection, newCutColor},  {ToolOptions::Rotation, newRotationCancel},
};

}  // namespace

std::span<const OptionField> toolCommands() { return kFields; }

}  // namespace orvane::studio
