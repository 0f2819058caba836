#pragma once

#include <string>

#include <gio/gio.h>

namespace orvane::studio {

/// The pictures that were opened or saved last, shared with the desktop's other programs. The menu follows
/// the list; its items activate "app.open-recent" with the file's URI.
[[nodiscard]] GMenuModel* newRecentMenu();
void rememberRecent(const std::string& path);

}  // namespace orvane::studio
