#include "gtk/vistrel_host.h"

#include <array>
#include <utility>

#include "gtk/member_rows.h"
#include "gtk/values.h"

namespace orvane::gtk {

/// Keeps the widget, and this host with it, even if a signal handler drops it.
class VistrelHost::Hold {
 public:
    explicit Hold(GtkWidget* widget) : widget_(GTK_WIDGET(g_object_ref(widget))) {}
    ~Hold() { g_object_unref(widget_); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

 private:
    GtkWidget* widget_;
};

/// The scope of one call into the control. A slow call that a signal handler starts begins when the scope
/// ends: the control may still have something to do after the handler.
class VistrelHost::Entry {
 public:
    explicit Entry(VistrelHost& host) : hold_(host.widget_), host_(host) {
        ++host_.entries_;
        if (host_.isBusy()) host_.finishSlowCall();
        host_.finishBegunCalls();
    }
    ~Entry() {
        host_.settle();
        if (--host_.entries_ == 0) host_.beginSlowCall();
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

 private:
    Hold hold_;
    VistrelHost& host_;
};

VistrelHost::VistrelHost(GtkWidget* widget, const ClassData& classData) noexcept
    : widget_(widget),
      class_(classData),
      window_(
          widget, [](gpointer host) { static_cast<VistrelHost*>(host)->tick(); }, this),
      clipboard_(widget),
      control_(window_, &clipboard_),
      mouse_(widget, *this) {
    control_.connect(*this);
    window_.setClientSize({FirstView::kAssumedWidth, FirstView::kAssumedHeight});
    control_.onSize(FirstView::kAssumedWidth, FirstView::kAssumedHeight);
    watch_.update(control_, G_OBJECT(widget_), class_.properties);
}

VistrelHost::~VistrelHost() {
    if (pictureChangedSource_ != 0) g_source_remove(pictureChangedSource_);
    if (settleSource_ != 0) g_source_remove(settleSource_);
    if (beginSource_ != 0) g_source_remove(beginSource_);
}

// --- members ---

Value VistrelHost::call(int id, std::span<const Value> arguments) noexcept {
    const Hold hold(widget_);
    mouse_.deliver();
    const Entry entry(*this);
    firstView_.noteCall(id);
    Value result;
    control_.invoke(id, InvokeKind::Method, arguments, &result);
    return result;
}

Value VistrelHost::get(int id) noexcept {
    if (isBusy()) return watch_.lastValue(id);
    Value value;
    control_.invoke(id, InvokeKind::Get, {}, &value);
    return value;
}

void VistrelHost::put(int id, const Value& value) noexcept {
    const Hold hold(widget_);
    mouse_.deliver();
    const Entry entry(*this);
    control_.invoke(id, InvokeKind::Put, {&value, 1});
}

void VistrelHost::typeText(std::u16string_view text) noexcept {
    const Hold hold(widget_);
    mouse_.deliver();
    const Entry entry(*this);
    control_.typeText(text);
}

bool VistrelHost::start(int id, std::vector<Value> arguments, GTask* task) noexcept try {
    // A worker must not meet the Paste that goes on when the clipboard has answered.
    if (isOccupied()) return false;
    // The control may be between the press and the release of a gesture; what comes meanwhile is lost to it.
    mouse_.deliver();
    mouse_.endGesture();
    if (isOccupied()) return false;  // what was handed over has started one
    firstView_.noteCall(id);
    slowCall_ = std::make_unique<SlowCall>(control_, id, std::move(arguments), task, [](gpointer ended) {
        auto* endedTask = static_cast<GTask*>(ended);
        auto* host = static_cast<VistrelHost*>(g_task_get_source_tag(endedTask));
        if (host->isBusy() && host->slowCall_->isFor(endedTask)) host->finishSlowCall();
        answer(endedTask);
        return G_SOURCE_REMOVE;
    });
    if (entries_ == 0) {
        beginSlowCall();
    } else {
        // The handler that is running may wait for the end with a main loop of its own.
        const auto begin = [](gpointer host) -> gboolean {
            static_cast<VistrelHost*>(host)->beginSlowCall();
            return G_SOURCE_REMOVE;
        };
        beginSource_ = g_idle_add_full(G_PRIORITY_HIGH, begin, this, nullptr);
    }
    g_object_notify_by_pspec(G_OBJECT(widget_), class_.busy);
    return true;
} catch (...) {
    return false;
}

// Not while the clipboard is waited for: the paste goes on afterwards, and its end begins the call.
void VistrelHost::beginSlowCall() noexcept {
    if (beginSource_ != 0) g_source_remove(std::exchange(beginSource_, 0));
    if (isBusy() && !clipboard_.isWaiting()) slowCall_->begin();
}

// The end of one may have started the next, in a handler that waited for it too.
void VistrelHost::finishBegunCalls() noexcept {
    while (isBusy() && slowCall_->hasBegun()) finishSlowCall();
}

void VistrelHost::finishSlowCall() noexcept {
    if (beginSource_ != 0) g_source_remove(std::exchange(beginSource_, 0));
    slowCall_.reset();
    if (newSize_) {
        window_.setClientSize(*newSize_);
        newSize_.reset();
        showInView();
    }
    settle();
    g_object_notify_by_pspec(G_OBJECT(widget_), class_.busy);
}

bool VistrelHost::imagePointAt(IntPoint client, IntPoint& image) noexcept {
    if (isBusy()) return false;
    image = control_.imagePointAt(client);
    const IntSize picture = pictureSize();
    return control_.showsImageAt(client) && IntRect{0, 0, picture.width, picture.height}.contains(image);
}

IntSize VistrelHost::pictureSize() noexcept {
    Value width, height;
    control_.invoke("ImageWidth", InvokeKind::Get, {}, &width);
    control_.invoke("ImageHeight", InvokeKind::Get, {}, &height);
    return {width.number(), height.number()};
}

// --- messages ---

// The toolkit asks for this in the middle of laying out the window, where a handler must not change another
// widget's size. It tells of another scale even before it has given the widget a size.
void VistrelHost::resize(IntSize size) noexcept {
    if (size.width <= 0 || size.height <= 0) return;
    if (firstView_.hasBegun() && size == newSize_.value_or(clientSize())) return;
    if (isBusy()) {
        newSize_ = size;
        return;
    }
    window_.setClientSize(size);
    showInView();
    window_.apply();
    settleSoon();
}

void VistrelHost::showInView() noexcept {
    const IntSize view = clientSize();
    control_.onSize(view.width, view.height);
    if (firstView_.begin(view)) {
        const IntSize picture = pictureSize();
        const bool large = picture.width >= view.width || picture.height >= view.height;
        control_.invoke(large ? FirstView::kZoomToFit : FirstView::kActialSize, InvokeKind::Method, {});
    }
    window_.wishRedraw();
}

const ViewTiles& VistrelHost::frame() noexcept {
    if (!isBusy() && (window_.takeRedrawWish() || window_.isOfAnotherScale())) control_.onPaint();
    return window_.tiles();
}

bool VistrelHost::press(IntPoint position) noexcept {
    if (isOccupied()) return false;
    const Entry entry(*this);
    window_.setPointer(position);
    control_.onLeftDown(position.x, position.y);
    return true;
}

void VistrelHost::release(IntPoint position) noexcept {
    const Entry entry(*this);
    window_.setPointer(position);
    control_.onLeftUp(position.x, position.y);
}

void VistrelHost::rightPress(IntPoint position) noexcept {
    if (isOccupied()) return;
    const Entry entry(*this);
    window_.setPointer(position);
    control_.onRightDown(position.x, position.y);
}

void VistrelHost::move(IntPoint position, MouseButtons held) noexcept {
    if (isOccupied()) return;
    const Entry entry(*this);
    window_.setPointer(position);
    control_.onMouseMove(position.x, position.y, held);
}

// The control only tells of it, so a slow call is not waited for.
void VistrelHost::dropFile(std::u16string_view path) noexcept try {
    const Hold hold(widget_);
    mouse_.deliver();
    if (isBusy()) {
        const Value argument(path);
        return emit(EventId::OnDropFile, {&argument, 1});
    }
    const Entry entry(*this);
    control_.onDropFile(path);
} catch (...) {
    // Without memory the drop is lost.
}

void VistrelHost::tick() noexcept {
    if (isOccupied()) return;
    const Entry entry(*this);
    control_.onTimer();
}

void VistrelHost::setShown(bool shown) noexcept {
    if (!shown) {
        mouse_.deliver();
        mouse_.endGesture();
    }
    window_.setShown(shown);
}

void VistrelHost::destroyWindow() noexcept {
    const Entry entry(*this);
    mouse_.endGesture();
    control_.onDestroy();
    window_.setShown(false);
}

void VistrelHost::stopWaiting() noexcept { clipboard_.cancelRead(); }

void VistrelHost::clipboardChanged() noexcept {
    if (!isBusy()) settle();
}

// --- what follows from a call ---

void VistrelHost::settle() noexcept {
    if (isBusy()) return;  // a handler has started a slow call; its end settles
    window_.apply();
    notePicture();
    // All is asked before anything is told: a handler may start a slow call.
    const bool pending = control_.holdsResult();
    const bool isNews = std::exchange(pending_, pending) != pending;
    watch_.update(control_, G_OBJECT(widget_), class_.properties);
    if (isNews) g_object_notify_by_pspec(G_OBJECT(widget_), class_.pending);
}

void VistrelHost::settleSoon() noexcept {
    if (settleSource_ != 0) return;
    const auto due = [](gpointer data) -> gboolean {
        auto* host = static_cast<VistrelHost*>(data);
        const Hold hold(host->widget_);
        host->settleSource_ = 0;
        host->settle();
        return G_SOURCE_REMOVE;
    };
    settleSource_ = g_idle_add_full(GTK_PRIORITY_RESIZE - 1, due, this, nullptr);
}

void VistrelHost::notePicture() noexcept {
    const std::uint64_t id = control_.pictureId();
    if (id == pictureId_) return;
    pictureId_ = id;
    if (pictureChangedSource_ != 0) return;
    const auto emit = [](gpointer data) -> gboolean {
        auto* host = static_cast<VistrelHost*>(data);
        host->pictureChangedSource_ = 0;
        g_signal_emit(host->widget_, host->class_.pictureChanged, 0);
        return G_SOURCE_REMOVE;
    };
    pictureChangedSource_ = g_idle_add(emit, this);
}

void VistrelHost::onEvent(EventId event, std::span<const Value> arguments) {
    emit(event, arguments);
    finishBegunCalls();
}

void VistrelHost::emit(EventId event, std::span<const Value> arguments) noexcept {
    std::array<GValue, 3> values{};
    g_value_init(values.data(), G_OBJECT_TYPE(widget_));
    g_value_set_object(values.data(), widget_);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        g_value_init(&values[i + 1], gtypeOf(arguments[i].type()));
        toGValue(arguments[i], &values[i + 1]);
    }
    const auto rows = signalRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].event == event) g_signal_emitv(values.data(), class_.signals[i], 0, nullptr);
    }
    for (std::size_t i = 0; i <= arguments.size(); ++i) g_value_unset(&values[i]);
}

}  // namespace orvane::gtk
