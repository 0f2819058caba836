#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "document/history_stack.h"
#include "document/view_state.h"

namespace orvane {

/// The one image that a control edits, with its history, its exchange with files and arrays, and the settings
/// that travel with it. Everything that changes the image works through this class. No member throws.
class ImageDocument {
 public:
    // --- the image ---

    [[nodiscard]] bool isEmpty() const noexcept { return history.isEmpty(); }
    [[nodiscard]] int width() const noexcept { return isEmpty() ? 0 : history.currentState().width(); }
    [[nodiscard]] int height() const noexcept { return isEmpty() ? 0 : history.currentState().height(); }
    [[nodiscard]] IntSize size() const noexcept { return {width(), height()}; }
    /// The current image, or null when the document is empty.
    [[nodiscard]] const PixelSurface* currentSurface() const noexcept {
        return isEmpty() ? nullptr : &history.currentState();
    }
    /// The current image's pixels; a null view when the document is empty.
    [[nodiscard]] PixelView currentPixels() const noexcept;

    /// Drops the image and its history. View, colours and settings stay.
    void clearDocument() noexcept;
    /// A blank image filled with bitmapBackColor, at least 4 x 4 (smaller: nothing changes). The zoom stays.
    /// When it cannot be allocated the document is left empty.
    void newImage(int width, int height) noexcept;

    // --- history: every change of the image is one step ---

    /// Adds the current image as a new step, to be changed by what follows (see lockCurrent); it costs no
    /// copy. Refused (false) when the document is empty.
    bool pushSnapshot() noexcept;
    /// A surface for the next state, of this size and with undefined contents, not yet part of the
    /// history; null when the document is empty or memory ran out.
    [[nodiscard]] PixelSurface prepareState(int width, int height) noexcept;
    /// Adds a finished state as a new step, of the same or another size. A state equal to the one before it
    /// shares its pixels. Sets `modified`; re-centring the view is up to the caller.
    void pushState(PixelSurface state) noexcept;
    /// Write access to the newest state, keeping its contents. Null when empty or when memory ran out.
    [[nodiscard]] MutablePixelView lockCurrent() noexcept;

    [[nodiscard]] bool undoEnabled() const noexcept { return history.undoEnabled(); }
    [[nodiscard]] bool redoEnabled() const noexcept { return history.redoEnabled(); }
    void undo() noexcept;
    void redo() noexcept;

    // --- files and arrays ---

    /// Empties the document, then loads the file (UTF-8 path). False: the document stays empty.
    bool loadImage(std::string_view path) noexcept;
    /// Writes the image, whatever the path's extension; type 0..4 as ImageFormat. Success clears `modified`;
    /// a failure leaves an existing file and `modified` as they were.
    bool saveImage(std::string_view path, int type) noexcept;
    /// Empties the document, then takes over width * height * 4 bytes B, G, R, A, top row first. False (a
    /// side below 2, too few bytes, no memory): the document stays empty.
    bool loadPixels(std::span<const std::uint8_t> bytes, int width, int height) noexcept;
    /// A copy of the pixels as bytes; nothing when empty or out of memory. It costs a history step that is
    /// undone again, so afterwards Modified and RedoEnable are true.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> imageArray() noexcept;
    void setJpegQuality(int quality) noexcept;

    // --- view ---

    [[nodiscard]] IntRect imageRect() const noexcept { return view.imageRect(size()); }
    void updateOverflow() noexcept { view.updateOverflow(size()); }

    HistoryStack history;
    ViewState view;
    int jpegQuality = 90;
    Argb bitmapBackColor = 0xFFFFFFFFu;
    Argb frameColor = 0xFFD3D3D3u;
    bool modified = false;
    bool rotationPreview = false;  ///< a free-rotation preview is showing
    float rotationAngle = 45.0f;   ///< its angle in degrees

 private:
    void stepThroughHistory(void (HistoryStack::*step)() noexcept) noexcept;
};

}  // namespace orvane
