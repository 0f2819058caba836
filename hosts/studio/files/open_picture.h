#pragma once

#include <string>

namespace orvane::studio {

class StudioWindow;

/// Opens a file: in this window when it has no picture, else in a new one. What this window shows is never
/// lost, whether or not the file is a picture.
void openPath(StudioWindow& window, const std::string& path);

/// Tells people that a file was not opened, and why.
void tellNotOpened(StudioWindow& window, const std::string& path);

/// Why a file is no picture that can be opened, as a sentence.
[[nodiscard]] std::string whyNotOpened(const std::string& path);

}  // namespace orvane::studio
