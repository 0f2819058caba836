#pragma once

namespace orvane::studio {

class StudioWindow;

/// Has every file that is dropped anywhere on the window opened.
void openDroppedFiles(StudioWindow& window);

}  // namespace orvane::studio
