#include "studio/support/message.h"

#include <utility>

#include "studio/support/answers.h"

namespace orvane::studio {

void showMessage(GtkWindow* parent, const std::string& title, const std::string& text,
                 std::function<void()> closed) {
    GtkWidget* dialog =
        gtk_message_dialog_new(parent, GtkDialogFlags(GTK_DIALOG_MODAL | GTK_DIALOG_DESTROY_WITH_PARENT),
                               GTK_MESSAGE_ERROR, GTK_BUTTONS_CLOSE, "%s", title.c_str());
    gtk_message_dialog_format_secondary_text(GTK_MESSAGE_DIALOG(dialog), "%s", text.c_str());
    gtk_window_set_title(GTK_WINDOW(dialog), "Orvane Studio");
    nameByLabels(GTK_DIALOG(dialog), {GTK_RESPONSE_CLOSE});
    whenAnswered(GTK_DIALOG(dialog), [closed = std::move(closed)](int) { closed(); });
    gtk_window_present(GTK_WINDOW(dialog));
}

}  // namespace orvane::studio
