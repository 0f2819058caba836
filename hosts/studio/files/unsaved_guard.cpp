#include "studio/files/unsaved_guard.h"

#include "studio/files/save_picture.h"
#include "studio/support/answers.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

enum Answer { kDiscard = 1, kSave = 2 };

GtkDialog* newQuestion(StudioWindow& window) {
    GtkWidget* dialog = gtk_message_dialog_new(
        window.window(), GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
        GTK_MESSAGE_QUESTION, GTK_BUTTONS_NONE, "Save the changes to “%s”?", window.picture().name().c_str());
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "What is not saved will be lost.");
    gtk_window_set_title(GTK_WINDOW(dialog), "Unsaved changes");
    gtk_dialog_add_button(GTK_DIALOG(dialog), "_Discard", kDiscard);
    gtk_dialog_add_button(GTK_DIALOG(dialog), "_Cancel", GTK_RESPONSE_CANCEL);
    gtk_dialog_add_button(GTK_DIALOG(dialog), "_Save", kSave);
    gtk_widget_add_css_class(gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), kDiscard),
                             "destructive-action");
    gtk_widget_add_css_class(gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), kSave),
                             "suggested-action");
    nameByLabels(GTK_DIALOG(dialog), {kDiscard, GTK_RESPONSE_CANCEL, kSave});
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), kSave);
    return GTK_DIALOG(dialog);
}

}  // namespace

void guardUnsaved(StudioWindow& window, std::function<void()> goOn) {
    if (!window.picture().isUnsaved()) return goOn();
    GtkDialog* question = newQuestion(window);
    const std::function<void(int)> answered = [&window, goOn = std::move(goOn)](int answer) {
        if (answer == kDiscard) goOn();
        if (answer == kSave) save(window, goOn);
    };
    whenAnswered(question, window.whileOpen(answered));
    gtk_window_present(GTK_WINDOW(question));
}

}  // namespace orvane::studio
