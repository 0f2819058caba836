#pragma once

#include <orvane/geometry.h>

#include <algorithm>

#include "document/image_document.h"

namespace orvane {

/// The centre of a zoom or radial blur: taken into the image and, where it is large enough, off its border.
inline IntPoint pathCentre(const ImageDocument& document, int x, int y) {
    const auto within = [](int position, int length) {
        return std::max(std::min(std::max(position, 1), length - 2), 0);
    };
    return {within(x, document.width()), within(y, document.height())};
}

}  // namespace orvane
