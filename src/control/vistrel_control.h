#pragma once

#include <string>

#include <orvane/clipboard_services.h>
#include <orvane/event_sink.h>
#include <orvane/geometry.h>
#include <orvane/mouse.h>
#include <orvane/window_services.h>

#include "control/event_sinks.h"
#include "control/tool_set.h"
#include "control/trail_layer.h"
#include "document/image_document.h"
#include "tools/brush_settings.h"
#include "tools/pen_settings.h"
#include "tools/text_settings.h"
#include "tools/tool_settings.h"
#include "view/draw_view.h"
#include "view/rotation_bar.h"
#include "view/scroll_window.h"

namespace orvane {

/// The photo-editing control: the state of one control and the operations that its members, messages and
/// tools have in common. The members themselves are rows of the member table and reach the control through
/// `invoke` (control/dispatch.h). One thread at a time; nothing is shared with other controls. No member
/// throws.
class VistrelControl {
 public:
    /// A control without a window stores and computes everything and draws nothing.
    /// Without a clipboard nothing is ever on it, and what is copied goes nowhere.
    explicit VistrelControl(WindowServices* window = nullptr,
                            ClipboardServices* clipboard = nullptr) noexcept;
    ~VistrelControl();
    VistrelControl(const VistrelControl&) = delete;
    VistrelControl& operator=(const VistrelControl&) = delete;

    // --- what members share ---

    /// The composite redraw: background, image with frame, overlay of the active mode, scroll window,
    /// presented as one picture. Nothing while updateLocked or without a window.
    void refresh() noexcept;
    /// Leaves the active paint mode and enters another; neither resets tools nor redraws.
    void SetPaintStatus(int mode) noexcept;
    void ResetAllTools() noexcept;
    /// Hands the rectangle of the shown image to the tools that are confined to it. Follows whatever moves
    /// or resizes the image in the window.
    void updateToolBounds() noexcept;
    /// Keeps pending tool geometry on the same image pixels after a zoom change.
    void reprojectToolGeometry() noexcept;
    /// Shows a cursor; any but the arrow holds the mouse capture, so that leaving the window is noticed.
    void setToolCursor(CursorId cursor) noexcept;
    /// Takes the mouse anew, or gives it back, if it is held.
    void captureMouse() noexcept;
    void releaseMouse() noexcept;
    /// The image pixel under a window pixel, not clamped to the image.
    [[nodiscard]] IntPoint toImage(IntPoint mouse) const noexcept;
    /// The window pixel that shows an image pixel.
    [[nodiscard]] IntPoint toWindow(IntPoint image) const noexcept;
    /// Whether the zoom is as good as 1.
    [[nodiscard]] bool showsActualSize() const noexcept;
    /// The window's size with its border; without a window, the view's.
    [[nodiscard]] IntSize outerSize() const noexcept;
    void fire(EventId event, std::span<const Value> arguments = {}) noexcept { sinks.fire(event, arguments); }
    /// Fires an event whose arguments are the image coordinates of a window pixel.
    void fireAt(EventId event, IntPoint mouse) noexcept;
    /// Draws what a tool has collected into the image, as the tool sees fit.
    void commit(PaintTool& tool) noexcept;
    /// Enters mode 16 with this picture as the stamp, or mode 14 with this text, at the image's top-left
    /// corner.
    void placeStamp(PixelSurface picture) noexcept;
    void placeText(std::u16string_view string) noexcept;
    /// For a text that is being typed: one that is placed already changes its words and keeps its place; a
    /// new one comes to the top-left corner of what is shown of the image.
    void retypeText(std::u16string_view string) noexcept;
    /// The body of `Accept`: the active tool's pending result goes into the image.
    void CommitPending() noexcept;

    // --- messages of the window ---

    void onSize(int width, int height) noexcept;
    void onPaint() noexcept;
    // Positions are client pixels; captured, they lie outside the window too.
    void onLeftDown(int x, int y) noexcept;
    void onLeftUp(int x, int y) noexcept;
    void onRightDown(int x, int y) noexcept;
    void onMouseMove(int x, int y, MouseButtons held) noexcept;
    /// A tick of the animation timer.
    void onTimer() noexcept;
    void onDropFile(std::u16string_view path) noexcept;
    void onDestroy() noexcept;

    // --- state ---

    static constexpr int kAnimationTimer = 1;
    static constexpr int kAnimationPeriodMs = 50;

    EventSinks sinks;
    WindowServices* window = nullptr;  ///< `windowHandle`: null until the window exists
    ClipboardServices* clipboard = nullptr;
    ImageDocument document;
    PixelSurface backBuffer;  ///< client-area size; null before the first resize
    int paintStatus = 0;
    CursorId cursorKind = CursorId::Arrow;
    bool mouseCaptured = false;
    bool updateLocked = false;
    Argb backgroundColor = 0xFF00008Bu;
    Argb eraserColor;  ///< copy of bitmapBackColor taken at construction
    PenSettings pen;
    BrushSettings brush;
    FreehandSettings freehand;
    StampSettings stamp;
    TextSettings text;
    ToolSet tools;
    RotationBar rotationBar;
    ScrollWindow scrollWindow{pen, brush};

 private:
    void drag(IntPoint mouse) noexcept;
    void hover(IntPoint mouse, MouseButtons held) noexcept;
    [[nodiscard]] bool isScrollWindowShown() const noexcept;
    [[nodiscard]] bool scrollWindowHasRoom() const noexcept;
    void compose(MutablePixelView target) noexcept;
    void paintView(MutablePixelView target) noexcept;
    void updateScrollWindowView() noexcept;

    ViewPainter viewPainter_;
    TrailLayer trail_;
};

}  // namespace orvane
