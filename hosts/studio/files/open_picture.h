#pragma once

#include <functional>
#include <string>

namespace orvane::studio {

class StudioWindow;

/// Opens a file: in this window when it has no picture, else in a new one, which closes again when the file
/// is no picture. What this window shows is never lost.
void openPath(StudioWindow& window, const std::string& path);

/// Tells people that a file was not opened, and why; `closed` is called when they have closed the message.
void tellNotOpened(
    StudioWindow& window, const std::string& path, std::function<void()> closed = [] {});

/// Why a file is no picture that can be opened, as a sentence.
[[nodiscard]] std::string whyNotOpened(const std::string& path);

}  // namespace orvane::studio
