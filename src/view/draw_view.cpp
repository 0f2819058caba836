#include "view/draw_view.h"

#include <algorithm>

namespace orvane {

void ViewPainter::paint(const ImageDocument& document, Argb backgroundColor,
                        MutablePixelView target) noexcept {
    std::fill_n(target.pixels, target.pixelCount(), backgroundColor);
    (void)document;
}

}  // namespace orvane
