#pragma once

namespace orvane {

/// The buttons that are held while the mouse moves.
struct MouseButtons {
    bool left = false, right = false;
};

}  // namespace orvane
