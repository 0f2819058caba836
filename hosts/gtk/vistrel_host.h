#pragma once

#include <memory>
#include <optional>
#include <span>

#include <gtk/gtk.h>

#include <orvane/control_base.h>

#include "gtk/first_view.h"
#include "gtk/gtk_clipboard.h"
#include "gtk/host_window.h"
#include "gtk/mouse_input.h"
#include "gtk/property_watch.h"
#include "gtk/slow_call.h"

namespace orvane::gtk {

/// One control inside its widget: every member call, message and event passes here. Whatever a call has
/// changed is settled before it returns: redraw, cursor, timer and notifications. All functions are the main
/// thread's.
///
/// While a slow call runs on its worker, messages are dropped, properties are answered from the last look,
/// and member calls wait for its end.
class VistrelHost final : private EventSink {
 public:
    /// What the class of the widget has in common for all its instances.
    struct ClassData {
        GParamSpec* const* properties = nullptr;  ///< in the order of propertyRows()
        GParamSpec *busy = nullptr, *pending = nullptr;
        const guint* signals = nullptr;  ///< in the order of signalRows()
        guint pictureChanged = 0;
    };

    VistrelHost(GtkWidget* widget, const ClassData& classData) noexcept;
    ~VistrelHost() override;
    VistrelHost(const VistrelHost&) = delete;
    VistrelHost& operator=(const VistrelHost&) = delete;

    // --- members ---

    Value call(int id, std::span<const Value> arguments) noexcept;
    Value get(int id) noexcept;
    void put(int id, const Value& value) noexcept;
    /// Starts a method on a worker. False while another one runs or waits for the clipboard.
    bool start(int id, std::vector<Value> arguments, GTask* task) noexcept;
    [[nodiscard]] bool isBusy() const noexcept { return slowCall_ != nullptr; }
    /// Busy, or waiting for another program's clipboard: then nothing else is started, and input is dropped.
    [[nodiscard]] bool isOccupied() const noexcept { return isBusy() || clipboard_.isWaiting(); }
    /// In device pixels. False when the position is not on the picture.
    bool imagePointAt(IntPoint client, IntPoint& image) noexcept;
    [[nodiscard]] std::uint64_t pictureId() const noexcept { return pictureId_; }
    /// Whether the control holds a result that Accept would draw.
    [[nodiscard]] bool isPending() const noexcept { return isBusy() ? pending_ : control_.holdsResult(); }
    void typeText(std::u16string_view text) noexcept;

    // --- the widget's messages, in device pixels ---

    void resize(IntSize size) noexcept;
    /// The picture of the next frame.
    const ViewTiles& frame() noexcept;
    /// False when the press was dropped.
    bool press(IntPoint position) noexcept;
    void release(IntPoint position) noexcept;
    void rightPress(IntPoint position) noexcept;
    void move(IntPoint position, MouseButtons held) noexcept;
    void dropFile(std::u16string_view path) noexcept;
    /// The widget comes on the screen, or leaves it.
    void setShown(bool shown) noexcept;
    /// The widget takes no input any more: the release of a button may not come.
    void endGesture() noexcept { mouse_.endGesture(); }
    /// A member that waits for another program, if there is one, goes without its answer.
    void stopWaiting() noexcept;
    /// The widget loses its window for good; members go on working.
    void destroyWindow() noexcept;
    /// The clipboard holds something else.
    void clipboardChanged() noexcept;

    [[nodiscard]] bool isCaptured() const noexcept { return window_.isCaptured(); }
    [[nodiscard]] IntSize clientSize() const noexcept { return window_.outerSize(); }

 private:
    class Hold;
    class Entry;

    void onEvent(EventId event, std::span<const Value> arguments) override;
    void emit(EventId event, std::span<const Value> arguments) noexcept;
    void settle() noexcept;
    /// Settles from the main loop.
    void settleSoon() noexcept;
    void beginSlowCall() noexcept;
    void finishSlowCall() noexcept;
    /// Waits for the end of a slow call that a handler has seen begin; the control is about to go on.
    void finishBegunCalls() noexcept;
    void showInView() noexcept;
    [[nodiscard]] IntSize pictureSize() noexcept;
    void notePicture() noexcept;
    void tick() noexcept;

    GtkWidget* widget_;
    const ClassData& class_;
    HostWindow window_;
    GtkClipboard clipboard_;
    ControlBase control_;
    FirstView firstView_;
    PropertyWatch watch_;
    MouseInput mouse_;
    std::unique_ptr<SlowCall> slowCall_;  ///< null while none runs
    int entries_ = 0;                     ///< calls into the control that have not returned
    guint beginSource_ = 0;               ///< begins a slow call if nothing else does
    std::optional<IntSize> newSize_;      ///< of the window, which a slow call is not to see change
    std::uint64_t pictureId_ = 0;
    bool pending_ = false;
    guint pictureChangedSource_ = 0, settleSource_ = 0;
};

}  // namespace orvane::gtk
