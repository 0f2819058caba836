#pragma once

#include <orvane/pixels.h>

namespace orvane {

/// The order in which the terms of the luma are added up. Some 80 of all colours have another luma in another
/// order.
enum class LumaOrder { RedGreenBlue, BlueRedGreen };

/// trunc(0.2125 R + 0.7154 G + 0.0721 B), 0..255, the products and sums rounded one by one in this order.
template <LumaOrder kOrder = LumaOrder::RedGreenBlue>
constexpr int lumaOf(Argb pixel) {
    const double red = 0.2125 * redOf(pixel), green = 0.7154 * greenOf(pixel), blue = 0.0721 * blueOf(pixel);
    return static_cast<int>(kOrder == LumaOrder::RedGreenBlue ? red + green + blue : blue + red + green);
}

}  // namespace orvane
