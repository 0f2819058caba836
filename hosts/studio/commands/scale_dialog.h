#pragma once

namespace orvane::studio {

class StudioWindow;

/// Asks for the picture's new size in pixels, both sides in proportion unless that is switched off.
void showScaleDialog(StudioWindow& window);

}  // namespace orvane::studio
