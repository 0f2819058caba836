#pragma once

namespace orvane::studio {

class StudioWindow;

/// Asks for size and colour of a blank picture, which comes into this window when it has none, else into a
/// new one.
void showNewPictureDialog(StudioWindow& window);

}  // namespace orvane::studio
