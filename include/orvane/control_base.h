#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>

#include <orvane/clipboard_services.h>
#include <orvane/dispatch_types.h>
#include <orvane/event_sink.h>
#include <orvane/export.h>
#include <orvane/geometry.h>
#include <orvane/mouse.h>
#include <orvane/value.h>
#include <orvane/window_services.h>

namespace orvane {

class VistrelControl;

/// One photo-editing control: what a host does besides calling members. `Vistrel` adds a typed function for
/// every member. Every control belongs to one thread. Nothing throws, shows or logs anything.
class ORVANE_EXPORT ControlBase {
 public:
    /// A control in a window. The window services must outlive the control.
    explicit ControlBase(WindowServices& window) noexcept;
    /// The same with a clipboard, which must outlive the control as well and may be null: then no picture is
    /// ever on it, and what is copied goes nowhere.
    ControlBase(WindowServices& window, ClipboardServices* clipboard) noexcept;
    /// A control without a window: everything works, nothing is drawn.
    ControlBase() noexcept;
    ~ControlBase();
    ControlBase(const ControlBase&) = delete;
    ControlBase& operator=(const ControlBase&) = delete;

    /// Calls, gets or puts a member by its dispatch identifier or name. Refused before anything happens when
    /// the identifier, the number or the types of the arguments are wrong. `result` may be null.
    DispatchResult invoke(int id, InvokeKind kind, std::span<const Value> arguments,
                          Value* result = nullptr) noexcept;
    DispatchResult invoke(std::string_view name, InvokeKind kind, std::span<const Value> arguments,
                          Value* result = nullptr) noexcept;

    /// Events go to every connected sink, in the order of connection. False when memory ran out.
    bool connect(EventSink& sink) noexcept;
    void disconnect(EventSink& sink) noexcept;

    /// The window's messages, in client pixels. A resize does not redraw by itself; a paint request does.
    void onSize(int width, int height) noexcept;
    void onPaint() noexcept;
    /// While the window holds the mouse capture, positions outside it arrive as well. `held` names the
    /// buttons that are down during the move.
    void onLeftDown(int x, int y) noexcept;
    void onLeftUp(int x, int y) noexcept;
    void onRightDown(int x, int y) noexcept;
    void onMouseMove(int x, int y, MouseButtons held) noexcept;
    /// The timer that the control started has ticked.
    void onTimer() noexcept;
    void onDropFile(std::u16string_view path) noexcept;
    /// The window goes away before the control does.
    void onDestroy() noexcept;

    /// The image pixel that the window shows at a client pixel. Where the picture ends it goes on, negative
    /// on the left and above; (0, 0) while there is no picture.
    [[nodiscard]] IntPoint imagePointAt(IntPoint client) const noexcept;
    /// Whether a client pixel lies in the rectangle in which the image is shown.
    [[nodiscard]] bool showsImageAt(IntPoint client) const noexcept;
    /// Names the picture's present pixels: 0 while there is no picture, and another number, never used
    /// before, whenever they may have changed. Undo brings the old number back.
    [[nodiscard]] std::uint64_t pictureId() const noexcept;
    /// Whether something is placed that `Accept` would draw, and that another mode would drop. Frames of the
    /// crop and the selection are not, and a rotation has buttons of its own.
    [[nodiscard]] bool holdsResult() const noexcept;
    /// `DrawString` for a text that is being typed: one that is placed already changes its words and keeps
    /// its place; a new one comes to the top-left corner of what the window shows of the picture.
    void typeText(std::u16string_view text) noexcept;

 protected:
    Value call(int id, std::initializer_list<Value> arguments) noexcept;
    [[nodiscard]] Value getProperty(int id) const noexcept;
    void putProperty(int id, const Value& value) noexcept;

 private:
    std::unique_ptr<VistrelControl> control_;  ///< null when memory ran out: every call then does nothing
};

}  // namespace orvane
