#pragma once

#include <functional>
#include <string>

namespace orvane::studio {

class StudioWindow;

/// Asks for pictures that there are; `chosen` is called with the path of each.
void choosePictures(StudioWindow& window, const char* title, bool several,
                    const std::function<void(const std::string& path)>& chosen);

}  // namespace orvane::studio
