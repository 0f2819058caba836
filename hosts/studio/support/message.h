#pragma once

#include <functional>
#include <string>

#include <gtk/gtk.h>

namespace orvane::studio {

/// Tells people something; they close it, and `closed` is called.
void showMessage(
    GtkWindow* parent, const std::string& title, const std::string& text,
    std::function<void()> closed = [] {});

}  // namespace orvane::studio
