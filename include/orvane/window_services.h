#pragma once

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane {

/// The cursors that the control asks for.
enum class CursorId : int {
    Arrow = 0,
    SizeNorthSouth = 1,
    SizeWestEast = 2,
    SizeNorthwestSoutheast = 3,
    SizeNortheastSouthwest = 4,
    Move = 5,
    Handle = 6,  ///< over a grab handle or vertex; for this one and the next three see cursorPicture
    Brush = 7,   ///< modes 12 and 15
    Pencil = 8,  ///< mode 3
    Spray = 9,   ///< mode 7
};

/// What the control asks of the window that it lives in. A host implements this; positions are client pixels.
/// All calls come from the thread that drives the control. None may throw; a service that cannot be supplied
/// does nothing.
class WindowServices {
 public:
    virtual ~WindowServices() = default;
    /// Shows the finished picture of the client area: every pixel opaque, valid only during the call.
    virtual void present(PixelView picture) = 0;
    /// Asked before every redraw. A window that shows its picture frame by frame answers true and calls the
    /// control's onPaint when its next frame is due: however many redraws were wanted since the last one, the
    /// picture is composed once. Answering false has it composed and presented at once.
    [[nodiscard]] virtual bool defersRedraw() { return false; }
    /// Until released, mouse positions outside the window are delivered too.
    virtual void captureMouse() = 0;
    virtual void releaseMouse() = 0;
    virtual void setCursor(CursorId cursor) = 0;
    [[nodiscard]] virtual IntPoint pointerPosition() const = 0;
    /// The window's size with its border, if it has one; the client size otherwise.
    [[nodiscard]] virtual IntSize outerSize() const = 0;
    /// From now on the host calls the control's onTimer every periodMs milliseconds, until stopTimer(id).
    virtual void startTimer(int id, int periodMs) = 0;
    virtual void stopTimer(int id) = 0;
};

}  // namespace orvane
