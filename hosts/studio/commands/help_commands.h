#pragma once

namespace orvane::studio {

class StudioWindow;

void showShortcuts(StudioWindow& window);
void showAbout(StudioWindow& window);

}  // namespace orvane::studio
