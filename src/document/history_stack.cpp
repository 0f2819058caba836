#include "document/history_stack.h"

#include <algorithm>
#include <utility>

namespace orvane {

void HistoryStack::clear() noexcept {
    for (PixelSurface& slot : slots) slot = PixelSurface();
    current = -1;
    filled = redoDepth = undoDepth = 0;
}

void HistoryStack::start(PixelSurface state) noexcept {
    clear();
    slots[0] = std::move(state);
    current = 0;
    filled = 1;
}

void HistoryStack::push(PixelSurface state) noexcept {
    current = (current + 1) % kHistorySlots;
    PixelSurface& slot = currentState();
    if (slot.isNull() && filled < kHistorySlots) ++filled;
    slot = std::move(state);
    undoDepth = std::min(undoDepth + 1, kHistorySlots - 1);
    redoDepth = 0;
}

void HistoryStack::undo() noexcept {
    if (!undoEnabled()) return;
    current = current == 0 ? kHistorySlots - 1 : current - 1;
    --undoDepth;
    ++redoDepth;
}

void HistoryStack::redo() noexcept {
    if (!redoEnabled()) return;
    current = (current + 1) % filled;
    ++undoDepth;
    --redoDepth;
}

}  // namespace orvane
