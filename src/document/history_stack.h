#pragma once

#include <array>

#include "document/pixel_surface.h"

namespace orvane {

/// The last states of the image in a ring of eight surfaces; the image itself is one of them.
///
///     slots    [0 1 2 3* 4 5 . .]   * current; undo goes left, redo right, both wrap around
///     undoDepth = 3, redoDepth = 2, filled = 6
///
/// States are shared, not copied: eight equal states cost one picture.
class HistoryStack {
 public:
    static constexpr int kHistorySlots = 8;

    [[nodiscard]] bool isEmpty() const noexcept { return filled < 1; }
    /// The current state; the stack must not be empty.
    [[nodiscard]] PixelSurface& currentState() noexcept { return slots[std::size_t(current)]; }
    [[nodiscard]] const PixelSurface& currentState() const noexcept { return slots[std::size_t(current)]; }

    /// Drops every state.
    void clear() noexcept;
    /// Drops every state and starts anew with this one.
    void start(PixelSurface state) noexcept;
    /// Makes `state` the newest one: what could be redone is abandoned, the oldest state goes when all slots
    /// are in use. Cannot fail.
    void push(PixelSurface state) noexcept;

    /// Undo never reaches a state that a newer edit has abandoned, and at most seven steps back.
    [[nodiscard]] bool undoEnabled() const noexcept { return undoDepth > 0; }
    [[nodiscard]] bool redoEnabled() const noexcept { return filled >= 1 && redoDepth > 0; }
    void undo() noexcept;
    void redo() noexcept;

    std::array<PixelSurface, kHistorySlots> slots;
    int current = -1;   ///< the slot of the current state, -1 when there is none
    int filled = 0;     ///< slots that have held a state since the last clear, 0..8
    int redoDepth = 0;  ///< steps that redo can take
    int undoDepth = 0;  ///< steps that undo can take
};

}  // namespace orvane
