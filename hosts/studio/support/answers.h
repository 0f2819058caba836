#pragma once

#include <functional>
#include <initializer_list>

#include <gtk/gtk.h>

namespace orvane::studio {

using Answered = std::function<void(int response)>;

/// Calls `answered` at every response of a dialog, which the call may destroy.
void onResponse(GtkDialog* dialog, Answered answered);
/// Calls `answered` with the response of a dialog that has been destroyed before.
void whenAnswered(GtkDialog* dialog, Answered answered);

/// Has the buttons of these responses announced by the labels that they show.
///
/// The toolkit (GTK 4.8) names them itself as well, with the mnemonic's underscore, and both would be read.
void nameByLabels(GtkDialog* dialog, std::initializer_list<int> responses);

}  // namespace orvane::studio
