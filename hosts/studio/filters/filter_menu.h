#pragma once

#include <gio/gio.h>

namespace orvane::studio {

/// The filters in their groups; the items activate "win.filter" with the filter's member.
[[nodiscard]] GMenuModel* newFilterMenu();

}  // namespace orvane::studio
