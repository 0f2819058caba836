#pragma once

#include <orvane/geometry.h>

#include <algorithm>

#include "document/image_document.h"

namespace orvane {

/// The centre of a zoom or radial blur: taken into the image and, where it is large enough, off its border.
inline IntPoint pathCentre(const ImageDocument& document, int x, int y) {
    return {std::min(std::max(x, 1), document.width() - 2), std::min(std::max(y, 1), document.height() - 2)};
}

}  // namespace orvane
