#pragma once

#include <functional>

namespace orvane::studio {

class StudioWindow;

/// Saves in the picture's own file, or asks for one when it has none, or one of a format that is not saved.
/// `saved` is called when the file has been written, and only then.
void save(StudioWindow& window, std::function<void()> saved = {});
/// Asks for file, format and quality.
void saveAs(StudioWindow& window, std::function<void()> saved = {});

}  // namespace orvane::studio
