#include "studio/support/question.h"

#include "studio/support/answers.h"

namespace orvane::studio {

GtkDialog* newQuestion(GtkWindow* parent, const char* title, const std::string& question,
                       const char* consequence, std::initializer_list<Choice> choices) {
    GtkWidget* widget =
        gtk_message_dialog_new(parent, GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
                               GTK_MESSAGE_QUESTION, GTK_BUTTONS_NONE, "%s", question.c_str());
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(widget), "%s", consequence);
    gtk_window_set_title(GTK_WINDOW(widget), title);
    GtkDialog* dialog = GTK_DIALOG(widget);
    for (const Choice& choice : choices) {
        GtkWidget* button = gtk_dialog_add_button(dialog, choice.label, choice.response);
        if (choice.kind == Choice::Kind::Destructive) gtk_widget_add_css_class(button, "destructive-action");
        if (choice.kind == Choice::Kind::Suggested) {
            gtk_widget_add_css_class(button, "suggested-action");
            gtk_dialog_set_default_response(dialog, choice.response);
        }
        nameByLabels(dialog, {choice.response});
    }
    return dialog;
}

}  // namespace orvane::studio
