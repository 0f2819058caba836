#include "studio/files/pages_guard.h"

#include <utility>

#include "studio/files/page_count.h"
#include "studio/support/answers.h"
#include "studio/window.h"

namespace orvane::studio {
namespace {

enum Answer { kReplace = 1, kSaveAs = 2 };

GtkDialog* newQuestion(StudioWindow& window, FileParts parts) {
    GtkWidget* dialog = gtk_message_dialog_new(
        window.window(), GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
        GTK_MESSAGE_QUESTION, GTK_BUTTONS_NONE, "“%s” has several %s", window.picture().name().c_str(),
        parts == FileParts::Frames ? "frames" : "pages");
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "Saving keeps only the first.");
    gtk_window_set_title(GTK_WINDOW(dialog), "Replace file");
    gtk_dialog_add_button(GTK_DIALOG(dialog), "_Replace", kReplace);
    gtk_dialog_add_button(GTK_DIALOG(dialog), "_Cancel", GTK_RESPONSE_CANCEL);
    gtk_dialog_add_button(GTK_DIALOG(dialog), "Save _As…", kSaveAs);
    gtk_widget_add_css_class(gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), kReplace),
                             "destructive-action");
    gtk_widget_add_css_class(gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), kSaveAs),
                             "suggested-action");
    nameByLabels(GTK_DIALOG(dialog), {kReplace, GTK_RESPONSE_CANCEL, kSaveAs});
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), kSaveAs);
    return GTK_DIALOG(dialog);
}

}  // namespace

void guardPages(StudioWindow& window, PagesAnswers answers) {
    const StudioPicture& picture = window.picture();
    const FileParts parts = picture.hasWrittenFile() ? FileParts::OnePicture : partsOfFile(picture.path());
    if (parts == FileParts::OnePicture) return answers.replace();
    GtkDialog* question = newQuestion(window, parts);
    const std::function<void(int)> answered = [answers = std::move(answers)](int answer) {
        if (answer == kReplace) answers.replace();
        if (answer == kSaveAs) answers.saveAs();
    };
    whenAnswered(question, window.whileOpen(answered));
    gtk_window_present(GTK_WINDOW(question));
}

}  // namespace orvane::studio
