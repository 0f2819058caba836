#include "studio/tools/text_options.h"

#include "studio/tools/font_list.h"
#include "studio/tools/property_fields.h"
#include "studio/tools/text_entry.h"

namespace orvane::studio {
namespace {

GtkWidget* newFont(OrvaneVistrel* control) {
    return newListField(control, {"", "Font", "Font of the text"}, "font-index",
                        G_LIST_MODEL(newFontList(control)));
}

GtkWidget* newSize(OrvaneVistrel* control) {
    return newNumberField(control, {"", "Text size", "Height of the text in pixels of the picture"},
                          "font-size", 8, 128, " px");
}

GtkWidget* newStyle(OrvaneVistrel* control) {
    const struct {
        FieldText text;
        const char* property;
        const char* iconName;
    } toggles[] = {
        {{"", "Bold", "Bold text"}, "font-style-bold", "format-text-bold-symbolic"},
        {{"", "Italic", "Slanted text"}, "font-style-italic", "format-text-italic-symbolic"},
        {{"", "Underline", "Underlined text"}, "font-style-underline", "format-text-underline-symbolic"},
        {{"", "Strike out", "Text struck through"},
         "font-style-strikeout",
         "format-text-strikethrough-symbolic"},
    };
    GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    gtk_widget_add_css_class(row, "linked");
    for (const auto& toggle : toggles) {
        gtk_box_append(GTK_BOX(row), newToggleField(control, toggle.text, toggle.property, toggle.iconName));
    }
    return row;
}

constexpr OptionField kFields[] = {
    {ToolOptions::Text, newTextEntry},
    {ToolOptions::Text, newFont},
    {ToolOptions::Text, newSize},
    {ToolOptions::Text, newStyle},
};

}  // namespace

std::span<const OptionField> textOptions() { return kFields; }

}  // namespace orvane::studio
