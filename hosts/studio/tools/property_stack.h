#pragma once

#include <initializer_list>

#include <orvane-gtk.h>

namespace orvane::studio {

/// A widget, and the values of a property with which it is of use: bit n stands for n.
struct PropertyPage {
    unsigned values;
    GtkWidget* widget;
};

/// One place for several fields, of which it shows the one that a whole-number property of the control asks
/// for, or none. It is always as wide as its widest: the bar must not take another line while something is
/// placed on the picture, which would move below it.
[[nodiscard]] GtkWidget* newPropertyStack(OrvaneVistrel* control, const char* property,
                                          std::initializer_list<PropertyPage> pages);

}  // namespace orvane::studio
