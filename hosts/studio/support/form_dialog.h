#pragma once

#include <functional>

#include <gtk/gtk.h>

namespace orvane::studio {

/// A small modal dialog of labelled fields with Cancel and one command. Its fields belong to it.
class FormDialog {
 public:
    FormDialog(GtkWindow* parent, const char* title, const char* command);

    /// A row; the label's underscore makes a key that leads to the field.
    void add(const char* label, GtkWidget* field);
    /// The same with something that helps to set the field, such as a slider, before it.
    void add(const char* label, GtkWidget* field, GtkWidget* helper);
    /// A row without a label.
    void add(GtkWidget* field);
    [[nodiscard]] static GtkWidget* newNumber(double lowest, double highest, double step, double value,
                                              int digits = 0);
    [[nodiscard]] static GtkWidget* newCheck(const char* label, bool checked);
    /// Has Return in a number field give the command.
    static void activateByReturn(GtkWidget* number);

    /// Shows it. One of the two is called while the fields still exist: when the command is given, and when
    /// it is not.
    void show(
        std::function<void()> accepted, std::function<void()> cancelled = [] {});
    [[nodiscard]] GtkDialog* dialog() const { return dialog_; }

 private:
    void addLabel(const char* label, GtkWidget* field);

    GtkDialog* dialog_;
    GtkGrid* grid_;
    int rows_ = 0;
};

}  // namespace orvane::studio
