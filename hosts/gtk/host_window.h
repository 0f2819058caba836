#pragma once

#include <atomic>

#include <gtk/gtk.h>

#include <orvane/window_services.h>

#include "gtk/view_tiles.h"

namespace orvane::gtk {

/// The window services of one control in a widget. The control's wishes are noted when they come, which may
/// be on a worker's thread, and carried out by apply() on the main thread.
class HostWindow final : public WindowServices {
 public:
    /// `tick` is called with `data` for every tick of the control's timer.
    HostWindow(GtkWidget* widget, void (*tick)(gpointer data), gpointer data) noexcept;
    ~HostWindow() override;
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// Device pixels.
    void setClientSize(IntSize size) noexcept { size_ = size; }
    void setPointer(IntPoint position) noexcept { pointer_ = position; }
    /// A window that is not on the screen has no timer; it gets its timer back when it is shown again.
    void setShown(bool shown) noexcept;
    /// Gives the widget its cursor, its redraw and its timer.
    void apply() noexcept;

    /// Whether a redraw was wanted since the last question.
    [[nodiscard]] bool takeRedrawWish() noexcept { return redrawWanted_.exchange(false); }
    void wishRedraw() noexcept { redrawWanted_ = true; }
    [[nodiscard]] bool isCaptured() const noexcept { return captured_; }
    /// Whether the picture last presented is that of a screen with another scale.
    [[nodiscard]] bool isOfAnotherScale() const noexcept;
    /// The picture last presented; nothing before the first.
    [[nodiscard]] const ViewTiles& tiles() const noexcept { return tiles_; }

    void present(PixelView picture) override;
    bool defersRedraw() override;
    void captureMouse() override { captured_ = true; }
    void releaseMouse() override { captured_ = false; }
    void setCursor(CursorId cursor) override { cursor_ = cursor; }
    [[nodiscard]] IntPoint pointerPosition() const override { return pointer_; }
    [[nodiscard]] IntSize outerSize() const override { return size_; }
    void startTimer(int id, int periodMs) override;
    void stopTimer(int id) override;

 private:
    void runTimer(int periodMs) noexcept;
    static gboolean onTick(gpointer data);

    GtkWidget* widget_;
    void (*tick_)(gpointer);
    gpointer tickData_;
    IntSize size_;
    IntPoint pointer_;
    ViewTiles tiles_;
    std::atomic<bool> redrawWanted_{false};
    bool captured_ = false, shown_ = false;
    CursorId cursor_ = CursorId::Arrow, shownCursor_ = CursorId::Arrow;
    int wantedPeriodMs_ = 0;  ///< 0 while the control wants no timer
    int periodMs_ = 0;        ///< of the source that runs
    guint source_ = 0;
};

}  // namespace orvane::gtk
