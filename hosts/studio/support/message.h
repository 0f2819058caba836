#pragma once

#include <string>

#include <gtk/gtk.h>

namespace orvane::studio {

/// Tells people something; they close it.
void showMessage(GtkWindow* parent, const std::string& title, const std::string& text);

}  // namespace orvane::studio
