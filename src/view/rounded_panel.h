#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// The colour of what stands on a panel and around it.
inline constexpr Argb kPanelInk = 0xFFD3D3D3u;

/// Draws a panel with corners of radius 6 over the target: filled with a colour that may be translucent, and
/// outlined 3 pixels wide along the rectangle's edge. At least 12 pixels wide and high.
void drawRoundedPanel(MutablePixelView target, IntRect area, Argb fill) noexcept;

}  // namespace orvane
