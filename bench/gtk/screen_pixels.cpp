#include "gtk/screen_pixels.h"

#include <gdk/x11/gdkx.h>

#include <X11/Xutil.h>

namespace orvane::bench {

bool isOnXServer(GdkDisplay* display) { return GDK_IS_X11_DISPLAY(display); }

IntPoint originOf(GtkWindow* window) {
    GdkSurface* surface = gtk_native_get_surface(GTK_NATIVE(window));
    Display* server = GDK_SURFACE_XDISPLAY(surface);
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(server, GDK_SURFACE_XID(surface), DefaultRootWindow(server), 0, 0, &x, &y, &child);
    return {x, y};
}

std::vector<std::uint32_t> screenPixels(GdkDisplay* display, IntRect area) {
    Display* server = GDK_DISPLAY_XDISPLAY(display);
    const int screen = DefaultScreen(server);
    if (area.x < 0 || area.y < 0 || area.right() > DisplayWidth(server, screen) ||
        area.bottom() > DisplayHeight(server, screen))
        return {};
    XImage* image = XGetImage(server, DefaultRootWindow(server), area.x, area.y, unsigned(area.width),
                              unsigned(area.height), AllPlanes, ZPixmap);
    if (image == nullptr) return {};
    std::vector<std::uint32_t> pixels;
    pixels.reserve(std::size_t(area.width) * std::size_t(area.height));
    for (int y = 0; y < area.height; ++y) {
        for (int x = 0; x < area.width; ++x)
            pixels.push_back(std::uint32_t(XGetPixel(image, x, y)) & 0xFFFFFFu);
    }
    XDestroyImage(image);
    return pixels;
}

}  // namespace orvane::bench
