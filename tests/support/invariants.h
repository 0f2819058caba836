#pragma once

#include <string>

#include "control/vistrel_control.h"

namespace orvane {

/// What is wrong with the control's state, or "" when everything that must always hold holds.
inline std::string brokenInvariant(const VistrelControl& control) {
    const ImageDocument& document = control.document;
    const HistoryStack& history = document.history;
    if (history.isEmpty()) {
        if (history.current != -1 || history.redoDepth != 0 || history.undoDepth != 0)
            return "an empty ring has depth";
        if (document.modified) return "an empty document is modified";
        for (const PixelSurface& slot : history.slots) {
            if (!slot.isNull()) return "an empty ring holds a picture";
        }
        return "";
    }
    if (history.current < 0 || history.current >= HistoryStack::kHistorySlots)
        return "current is outside the ring";
    if (history.filled < 1 || history.filled > HistoryStack::kHistorySlots) return "filled is out of range";
    if (history.undoDepth < 0 || history.redoDepth < 0 ||
        history.undoDepth + history.redoDepth >= HistoryStack::kHistorySlots) {
        return "more steps than the ring holds";
    }
    for (int step = -history.undoDepth; step <= history.redoDepth; ++step) {
        const int slot = (history.current + step + HistoryStack::kHistorySlots) % HistoryStack::kHistorySlots;
        const PixelSurface& state = history.slots[std::size_t(slot)];
        if (state.isNull() || state.width() < 1 || state.height() < 1)
            return "a state that can be reached is missing";
    }
    if (document.jpegQuality < 0 || document.jpegQuality > 100) return "JpegQuality is out of range";
    return "";
}

}  // namespace orvane
