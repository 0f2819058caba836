#pragma once

#include <string>

namespace orvane {

/// include/orvane/vistrel.h: the typed C++ face of the control.
std::string vistrelHeader();
/// docs/members.md: the reference page.
std::string membersPage();

}  // namespace orvane
