#pragma once

#include "document/image_document.h"

namespace orvane {

class ViewPainter {
 public:
    void paint(const ImageDocument& document, Argb backgroundColor, MutablePixelView target) noexcept;
};

}  // namespace orvane
