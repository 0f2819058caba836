#include "studio/support/answers.h"

namespace orvane::studio {

void onResponse(GtkDialog* dialog, Answered answered) {
    // The function may destroy the dialog, and the connection's own copy with it.
    const auto respond = +[](GtkDialog*, int response, gpointer data) {
        const Answered call = *static_cast<Answered*>(data);
        call(response);
    };
    const auto drop = +[](gpointer data, GClosure*) { delete static_cast<Answered*>(data); };
    g_signal_connect_data(dialog, "response", G_CALLBACK(respond), new Answered(std::move(answered)), drop,
                          GConnectFlags(0));
}

void whenAnswered(GtkDialog* dialog, Answered answered) {
    onResponse(dialog, [dialog, answered = std::move(answered)](int response) {
        // The click that is being handled keeps the dialog in memory, perhaps for longer than its parent.
        gtk_window_set_transient_for(GTK_WINDOW(dialog), nullptr);
        gtk_window_destroy(GTK_WINDOW(dialog));
        answered(response);
    });
}

void nameByLabels(GtkDialog* dialog, std::initializer_list<int> responses) {
    for (const int response : responses) {
        GtkWidget* button = gtk_dialog_get_widget_for_response(dialog, response);
        gtk_accessible_reset_property(GTK_ACCESSIBLE(button), GTK_ACCESSIBLE_PROPERTY_LABEL);
    }
}

}  // namespace orvane::studio
