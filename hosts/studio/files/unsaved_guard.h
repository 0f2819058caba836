#pragma once

#include <functional>

namespace orvane::studio {

class StudioWindow;

/// Goes on at once when the picture has no unsaved changes. Otherwise asks: saving goes on when it has
/// succeeded, discarding goes on, cancelling does not.
void guardUnsaved(StudioWindow& window, std::function<void()> goOn);

}  // namespace orvane::studio
