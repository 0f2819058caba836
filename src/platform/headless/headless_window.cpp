#include <orvane/headless_window.h>

#include <cstring>
#include <new>

namespace orvane {

void HeadlessWindow::present(PixelView picture) {
    ++presents_;
    try {
        picture_.resize(picture.pixelCount());
    } catch (const std::bad_alloc&) {
        return;  // the window keeps showing what it showed
    }
    pictureSize_ = {picture.width, picture.height};
    if (picture_.empty()) return;
    if (picture.isContiguous()) {
        std::memcpy(picture_.data(), picture.pixels, picture.pixelCount() * sizeof(Argb));
        return;
    }
    for (int y = 0; y < picture.height; ++y) {
        std::memcpy(picture_.data() + std::size_t(y) * std::size_t(picture.width), picture.row(y),
                    std::size_t(picture.width) * sizeof(Argb));
    }
}

}  // namespace orvane
