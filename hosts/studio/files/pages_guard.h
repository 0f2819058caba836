#pragma once

#include <functional>

namespace orvane::studio {

class StudioWindow;

/// What becomes of a file that has more than the picture that is shown.
struct PagesAnswers {
    std::function<void()> replace, saveAs;
};

/// Has the window's own file replaced at once when that loses nothing. A file that was opened, and has
/// several pages or frames, is asked about: saving keeps only the first.
void guardPages(StudioWindow& window, PagesAnswers answers);

}  // namespace orvane::studio
