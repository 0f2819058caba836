#include <orvane/control_base.h>

#include <new>

#include "control/dispatch.h"
#include "control/member_table.h"

namespace orvane {

ControlBase::ControlBase(WindowServices& window) noexcept : ControlBase(window, nullptr) {}
ControlBase::ControlBase(WindowServices& window, ClipboardServices* clipboard) noexcept
    : control_(new (std::nothrow) VistrelControl(&window, clipboard)) {}
ControlBase::ControlBase() noexcept : control_(new (std::nothrow) VistrelControl()) {}
ControlBase::~ControlBase() = default;

DispatchResult ControlBase::invoke(int id, InvokeKind kind, std::span<const Value> arguments,
                                   Value* result) noexcept {
    if (control_ == nullptr) return {DispatchStatus::MemberNotFound, -1};
    return orvane::invoke(*control_, id, kind, arguments, result);
}

DispatchResult ControlBase::invoke(std::string_view name, InvokeKind kind, std::span<const Value> arguments,
                                   Value* result) noexcept {
    const Member* member = findMember(name);
    if (control_ == nullptr || member == nullptr) return {DispatchStatus::MemberNotFound, -1};
    return orvane::invoke(*control_, *member, kind, arguments, result);
}

bool ControlBase::connect(EventSink& sink) noexcept {
    return control_ != nullptr && control_->sinks.connect(sink);
}
void ControlBase::disconnect(EventSink& sink) noexcept {
    if (control_ != nullptr) control_->sinks.disconnect(sink);
}

void ControlBase::onSize(int width, int height) noexcept {
    if (control_ != nullptr) control_->onSize(width, height);
}
void ControlBase::onPaint() noexcept {
    if (control_ != nullptr) control_->onPaint();
}
void ControlBase::onLeftDown(int x, int y) noexcept {
    if (control_ != nullptr) control_->onLeftDown(x, y);
}
void ControlBase::onLeftUp(int x, int y) noexcept {
    if (control_ != nullptr) control_->onLeftUp(x, y);
}
void ControlBase::onRightDown(int x, int y) noexcept {
    if (control_ != nullptr) control_->onRightDown(x, y);
}
void ControlBase::onMouseMove(int x, int y, MouseButtons held) noexcept {
    if (control_ != nullptr) control_->onMouseMove(x, y, held);
}
void ControlBase::onTimer() noexcept {
    if (control_ != nullptr) control_->onTimer();
}
void ControlBase::onDropFile(std::u16string_view path) noexcept {
    if (control_ != nullptr) control_->onDropFile(path);
}
void ControlBase::onDestroy() noexcept {
    if (control_ != nullptr) control_->onDestroy();
}

IntPoint ControlBase::imagePointAt(IntPoint client) const noexcept {
    if (control_ == nullptr || control_->document.isEmpty()) return {};
    return control_->toImage(client);
}

bool ControlBase::showsImageAt(IntPoint client) const noexcept {
    return control_ != nullptr && !control_->document.isEmpty() &&
           control_->document.imageRect().contains(client);
}

std::uint64_t ControlBase::pictureId() const noexcept {
    if (control_ == nullptr || control_->document.isEmpty()) return 0;
    return control_->document.currentSurface()->contentId();
}

bool ControlBase::holdsResult() const noexcept {
    if (control_ == nullptr || control_->document.isEmpty()) return false;
    const PaintTool* tool = control_->tools.ofMode(control_->paintStatus);
    return tool != nullptr && tool->holdsResult();
}

void ControlBase::typeText(std::u16string_view text) noexcept {
    if (control_ != nullptr && !control_->document.isEmpty()) control_->retypeText(text);
}

Value ControlBase::call(int id, std::initializer_list<Value> arguments) noexcept {
    Value result;
    invoke(id, InvokeKind::Method, {arguments.begin(), arguments.size()}, &result);
    return result;
}

Value ControlBase::getProperty(int id) const noexcept {
    Value result;
    if (control_ != nullptr) orvane::invoke(*control_, id, InvokeKind::Get, {}, &result);
    return result;
}

void ControlBase::putProperty(int id, const Value& value) noexcept {
    invoke(id, InvokeKind::Put, {&value, 1});
}

}  // namespace orvane
