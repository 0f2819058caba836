#include "gtk/host_window.h"

#include "gtk/cursors.h"

namespace orvane::gtk {

HostWindow::HostWindow(GtkWidget* widget, void (*tick)(gpointer), gpointer data) noexcept
    : widget_(widget), tick_(tick), tickData_(data) {}

HostWindow::~HostWindow() { runTimer(0); }

void HostWindow::setShown(bool shown) noexcept {
    shown_ = shown;
    runTimer(shown_ ? wantedPeriodMs_ : 0);
}

void HostWindow::apply() noexcept {
    if (shownCursor_ != cursor_) {
        shownCursor_ = cursor_;
        showCursor(widget_, cursor_);
    }
    runTimer(shown_ ? wantedPeriodMs_ : 0);
    if (redrawWanted_) gtk_widget_queue_draw(widget_);
}

bool HostWindow::isOfAnotherScale() const noexcept {
    return !tiles_.isEmpty() && tiles_.scale() != gtk_widget_get_scale_factor(widget_);
}

void HostWindow::present(PixelView picture) {
    GtkNative* native = gtk_widget_get_native(widget_);
    const bool software = native != nullptr && GSK_IS_CAIRO_RENDERER(gtk_native_get_renderer(native));
    tiles_.update(picture, gtk_widget_get_scale_factor(widget_),
                  software ? ViewTiles::Kind::Surfaces : ViewTiles::Kind::Textures);
}

bool HostWindow::defersRedraw() {
    redrawWanted_ = true;
    return true;
}

void HostWindow::startTimer(int, int periodMs) { wantedPeriodMs_ = periodMs; }

void HostWindow::stopTimer(int) { wantedPeriodMs_ = 0; }

void HostWindow::runTimer(int periodMs) noexcept {
    if (periodMs == periodMs_) return;
    if (source_ != 0) g_source_remove(source_);
    periodMs_ = periodMs;
    source_ = periodMs > 0 ? g_timeout_add(guint(periodMs), &HostWindow::onTick, this) : 0;
}

gboolean HostWindow::onTick(gpointer data) {
    auto* window = static_cast<HostWindow*>(data);
    window->tick_(window->tickData_);
    return G_SOURCE_CONTINUE;
}

}  // namespace orvane::gtk
