#pragma once

#include <string>

namespace orvane {

/// include/orvane/vistrel.h: the typed C++ face of the control.
std::string vistrelHeader();
/// docs/members.md: the reference page.
std::string membersPage();

/// orvane-gtk-members.h: the C functions of the GTK widget.
std::string gtkHeader();
/// orvane-gtk-members.cpp: their bodies, and the tables of the widget's class.
std::string gtkSource();

}  // namespace orvane
