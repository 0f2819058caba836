#pragma once

#include <functional>
#include <string>

namespace orvane::studio {

class StudioWindow;

/// Calls `isPicture` when the file has been read beside what the window shows, and is a picture. If it is
/// none, people are told, and nothing else happens.
///
/// For the members that take every file that is there, and show nothing of one that they cannot read.
void checkPicture(StudioWindow& window, const std::string& path, std::function<void()> isPicture);

}  // namespace orvane::studio
