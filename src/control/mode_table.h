#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

class VistrelControl;

/// What one paint mode makes of mouse and redraw. A null entry does nothing. Mouse messages get here only
/// while there is a picture, and after the scroll window and a drag of the view had their chance.
struct ModeRules {
    using MouseHandler = void (*)(VistrelControl&, IntPoint);
    using Overlay = void (*)(VistrelControl&, MutablePixelView view);

    int mode = 0;
    MouseHandler leftDown = nullptr;
    MouseHandler drag = nullptr;  ///< a move with the left button held
    MouseHandler leftUp = nullptr;
    MouseHandler hover = nullptr;          ///< a move with the left button up
    MouseHandler hoverNoButton = nullptr;  ///< a move with neither button held
    MouseHandler rightDown = nullptr;
    Overlay overlay = nullptr;
    bool acceptCommits = false;  ///< `Accept` draws what the tool has placed into the picture
};

/// The rules of a mode; none for a mode outside the table.
[[nodiscard]] const ModeRules& rulesOf(int mode) noexcept;

}  // namespace orvane
