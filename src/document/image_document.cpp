#include "document/image_document.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvane {

PixelView ImageDocument::currentPixels() const noexcept {
    return isEmpty() ? PixelView{} : history.currentState().read();
}

void ImageDocument::clearDocument() noexcept {
    history.clear();
    modified = false;
}

void ImageDocument::newImage(int newWidth, int newHeight) noexcept {
    constexpr int kSmallestSide = 4;
    if (newWidth < kSmallestSide || newHeight < kSmallestSide) return;
    clearDocument();
    PixelSurface blank = PixelSurface::create(newWidth, newHeight);
    if (blank.isNull()) return;
    const MutablePixelView pixels = blank.overwrite();
    std::fill_n(pixels.pixels, pixels.pixelCount(), bitmapBackColor);
    history.start(std::move(blank));
    view.centreView();
    updateOverflow();
}

bool ImageDocument::pushSnapshot() noexcept {
    if (isEmpty()) return false;
    history.push(PixelSurface(history.currentState()));
    modified = true;
    return true;
}

PixelSurface ImageDocument::prepareState(int newWidth, int newHeight) noexcept {
    return isEmpty() ? PixelSurface() : PixelSurface::create(newWidth, newHeight);
}

void ImageDocument::pushState(PixelSurface state) noexcept {
    const PixelView before = currentPixels();
    const PixelView after = state.read();
    // Pictures that differ nearly always do so within the first bytes, where the comparison stops.
    const bool unchanged = before.width == after.width && before.height == after.height &&
                           std::memcmp(before.pixels, after.pixels, after.pixelCount() * sizeof(Argb)) == 0;
    if (unchanged) state = history.currentState();
    history.push(std::move(state));
    modified = true;
}

MutablePixelView ImageDocument::lockCurrent() noexcept {
    return isEmpty() ? MutablePixelView{} : history.currentState().write();
}

void ImageDocument::undo() noexcept { stepThroughHistory(&HistoryStack::undo); }
void ImageDocument::redo() noexcept { stepThroughHistory(&HistoryStack::redo); }

void ImageDocument::stepThroughHistory(void (HistoryStack::*step)() noexcept) noexcept {
    const IntSize before = size();
    (history.*step)();
    if (size() == before) return;
    view.centreView();
    updateOverflow();
}

}  // namespace orvane
