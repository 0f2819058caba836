#include "studio/tools/tool_options.h"

#include "studio/tools/fill_options.h"
#include "studio/tools/freehand_options.h"
#include "studio/tools/option_field.h"
#include "studio/tools/pen_options.h"
#include "studio/tools/stamp_options.h"
#include "studio/tools/text_options.h"
#include "studio/tools/tool_commands.h"
#include "studio/tools/tool_table.h"
#include "studio/tools/usable_bar.h"
#include "studio/tools/view_options.h"
#include "studio/tools/wrap_layout.h"

namespace orvane::studio {
namespace {

constexpr const char *kBar = "options-bar", *kField = "option-field";
constexpr int kColumnSpacing = 8, kLineSpacing = 6;

/// The present tool's icon and name, where every line of options begins.
class Heading {
 public:
    Heading()
        : box_(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6)), icon_(gtk_image_new()), name_(gtk_label_new("")) {
        gtk_widget_add_css_class(name_, "heading");
        gtk_widget_set_margin_end(box_, kColumnSpacing);
        gtk_box_append(GTK_BOX(box_), icon_);
        gtk_box_append(GTK_BOX(box_), name_);
    }
    [[nodiscard]] GtkWidget* widget() const { return box_; }

    void show(const Tool* tool) const {
        gtk_widget_set_visible(box_, tool != nullptr);
        if (tool == nullptr) return;
        gtk_image_set_from_icon_name(GTK_IMAGE(icon_), tool->iconName);
        gtk_label_set_text(GTK_LABEL(name_), tool->label);
    }

 private:
    GtkWidget *box_, *icon_, *name_;
};

/// The bar: its fields are made once, and shown and hidden. Belongs to its widget.
class OptionsBar {
 public:
    explicit OptionsBar(OrvaneVistrel* control)
        : control_(control), widget_(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0)) {
        gtk_widget_set_layout_manager(widget_, newWrapLayout(kColumnSpacing, kLineSpacing));
        gtk_widget_add_css_class(widget_, "tool-options");
        gtk_accessible_update_property(GTK_ACCESSIBLE(widget_), GTK_ACCESSIBLE_PROPERTY_LABEL, "Tool options",
                                       -1);
        gtk_box_append(GTK_BOX(widget_), heading_.widget());
        for (const auto& fields : {textOptions(), stampOptions(), penOptions(), fillOptions(),
                                   freehandOptions(), viewOptions(), toolCommands()}) {
            for (const OptionField& field : fields) add(field);
        }
    }
    [[nodiscard]] GtkWidget* widget() const { return widget_; }

    void update() const {
        const Tool* tool = toolOfMode(orvane_vistrel_get_paint_status(control_));
        heading_.show(tool);
        const unsigned used = tool != nullptr ? tool->options : unsigned(ToolOptions::None);
        for (GtkWidget* child = gtk_widget_get_first_child(widget_); child != nullptr;
             child = gtk_widget_get_next_sibling(child)) {
            const auto* field = static_cast<const OptionField*>(g_object_get_data(G_OBJECT(child), kField));
            if (field != nullptr) gtk_widget_set_visible(child, (field->usedBy & used) != 0);
        }
        const bool usable = !orvane_vistrel_get_is_empty(control_) && !orvane_vistrel_get_busy(control_);
        setBarUsable(widget_, usable);
    }

    /// Keeps the bar up to date for as long as both it and the control are there.
    void follow() const {
        const auto changed = +[](OrvaneVistrel*, GParamSpec*, gpointer widget) {
            static_cast<OptionsBar*>(g_object_get_data(G_OBJECT(widget), kBar))->update();
        };
        for (const char* state : {"notify::paint-status", "notify::is-empty", "notify::busy"}) {
            g_signal_connect_object(control_, state, G_CALLBACK(changed), widget_, GConnectFlags(0));
        }
    }

 private:
    void add(const OptionField& field) const {
        GtkWidget* widget = field.make(control_);
        g_object_set_data(G_OBJECT(widget), kField, const_cast<OptionField*>(&field));
        gtk_box_append(GTK_BOX(widget_), widget);
    }

    OrvaneVistrel* control_;
    GtkWidget* widget_;
    Heading heading_;
};

}  // namespace

GtkWidget* newToolOptions(OrvaneVistrel* control) {
    auto* bar = new OptionsBar(control);
    const auto drop = +[](gpointer data) { delete static_cast<OptionsBar*>(data); };
    g_object_set_data_full(G_OBJECT(bar->widget()), kBar, bar, drop);
    bar->follow();
    bar->update();
    return bar->widget();
}

}  // namespace orvane::studio
