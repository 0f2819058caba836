#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// trunc(0.2125 R + 0.7154 G + 0.0721 B), 0..255, the products and sums rounded one by one in this order.
constexpr int lumaOf(Argb pixel) {
    return static_cast<int>(0.2125 * redOf(pixel) + 0.7154 * greenOf(pixel) + 0.0721 * blueOf(pixel));
}

}  // namespace orvane
