#include "studio/support/form_dialog.h"

#include "studio/support/answers.h"
#include "studio/support/object_ref.h"

namespace orvane::studio {
namespace {

/// Names a widget for screen readers, which would read the mnemonic's underscore too.
void setPlainName(GtkWidget* widget, const char* label) {
    GString* name = g_string_new(label);
    g_string_replace(name, "_", "", 1);
    gtk_accessible_update_property(GTK_ACCESSIBLE(widget), GTK_ACCESSIBLE_PROPERTY_LABEL, name->str, -1);
    g_string_free(name, TRUE);
}

}  // namespace

FormDialog::FormDialog(GtkWindow* parent, const char* title, const char* command)
    : dialog_(GTK_DIALOG(gtk_dialog_new_with_buttons(
          title, parent,
          GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT | GTK_DIALOG_USE_HEADER_BAR),
          "_Cancel", GTK_RESPONSE_CANCEL, command, GTK_RESPONSE_ACCEPT, nullptr))),
      grid_(GTK_GRID(gtk_grid_new())) {
    gtk_dialog_set_default_response(dialog_, GTK_RESPONSE_ACCEPT);
    nameByLabels(dialog_, {GTK_RESPONSE_CANCEL, GTK_RESPONSE_ACCEPT});
    gtk_window_set_resizable(GTK_WINDOW(dialog_), FALSE);
    gtk_grid_set_row_spacing(grid_, 8);
    gtk_grid_set_column_spacing(grid_, 12);
    gtk_widget_add_css_class(GTK_WIDGET(grid_), "form");
    gtk_box_append(GTK_BOX(gtk_dialog_get_content_area(dialog_)), GTK_WIDGET(grid_));
}

void FormDialog::add(const char* label, GtkWidget* field) {
    addLabel(label, field);
    gtk_widget_set_hexpand(field, TRUE);
    gtk_grid_attach(grid_, field, 1, rows_++, 1, 1);
}

void FormDialog::add(const char* label, GtkWidget* field, GtkWidget* helper) {
    addLabel(label, field);
    GtkWidget* both = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 6);
    gtk_accessible_update_relation(GTK_ACCESSIBLE(helper), GTK_ACCESSIBLE_RELATION_LABELLED_BY,
                                   gtk_grid_get_child_at(grid_, 0, rows_), nullptr, -1);
    gtk_box_append(GTK_BOX(both), helper);
    gtk_box_append(GTK_BOX(both), field);
    gtk_grid_attach(grid_, both, 1, rows_++, 1, 1);
}

void FormDialog::addLabel(const char* label, GtkWidget* field) {
    GtkWidget* text = gtk_label_new_with_mnemonic(label);
    gtk_label_set_mnemonic_widget(GTK_LABEL(text), field);
    gtk_widget_set_halign(text, GTK_ALIGN_END);
    gtk_accessible_update_relation(GTK_ACCESSIBLE(field), GTK_ACCESSIBLE_RELATION_LABELLED_BY, text, nullptr,
                                   -1);
    gtk_grid_attach(grid_, text, 0, rows_, 1, 1);
}

void FormDialog::add(GtkWidget* field) { gtk_grid_attach(grid_, field, 1, rows_++, 1, 1); }

GtkWidget* FormDialog::newNumber(double lowest, double highest, double step, double value, int digits) {
    GtkWidget* number = gtk_spin_button_new_with_range(lowest, highest, step);
    gtk_spin_button_set_digits(GTK_SPIN_BUTTON(number), guint(digits));
    gtk_spin_button_set_value(GTK_SPIN_BUTTON(number), value);
    activateByReturn(number);
    return number;
}

GtkWidget* FormDialog::newCheck(const char* label, bool checked) {
    GtkWidget* check = gtk_check_button_new_with_mnemonic(label);
    gtk_check_button_set_active(GTK_CHECK_BUTTON(check), checked);
    setPlainName(check, label);
    return check;
}

void FormDialog::activateByReturn(GtkWidget* number) {
    gtk_text_set_activates_default(GTK_TEXT(gtk_editable_get_delegate(GTK_EDITABLE(number))), TRUE);
}

void FormDialog::show(std::function<void()> accepted, std::function<void()> cancelled) {
    onResponse(dialog_, [dialog = dialog_, accepted = std::move(accepted),
                         cancelled = std::move(cancelled)](int response) {
        const auto held = ObjectRef<GtkDialog>::share(dialog);
        // A number field takes over what was typed when the focus leaves it.
        if (response == GTK_RESPONSE_ACCEPT) gtk_window_set_focus(GTK_WINDOW(dialog), nullptr);
        (response == GTK_RESPONSE_ACCEPT ? accepted : cancelled)();
        gtk_window_destroy(GTK_WINDOW(dialog));
    });
    gtk_window_present(GTK_WINDOW(dialog_));
}

}  // namespace orvane::studio
