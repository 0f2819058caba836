#pragma once

#include <cstdint>
#include <vector>

#include <gtk/gtk.h>

#include <orvane/geometry.h>

namespace orvane::bench {

[[nodiscard]] bool isOnXServer(GdkDisplay* display);
/// Where a window's upper left corner lies on the screen.
[[nodiscard]] IntPoint originOf(GtkWindow* window);
/// What a person sees in an area of the screen: its pixels, top row first, red, green and blue in the low
/// bits. Empty when the area is not on the screen.
[[nodiscard]] std::vector<std::uint32_t> screenPixels(GdkDisplay* display, IntRect area);

}  // namespace orvane::bench
