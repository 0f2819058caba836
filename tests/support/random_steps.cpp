#include "support/random_steps.h"

#include <unistd.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "control/dispatch.h"
#include "control/member_table.h"
#include "control/paint_mode.h"
#include "support/invariants.h"

namespace orvane {
namespace {

constexpr int kFirstWidth = 120, kFirstHeight = 90;

/// Numbers near the edges of what members accept, and any others.
std::int32_t number(FuzzInput& data) {
    constexpr std::int32_t kEdges[] = {
        0, 1, 2, 3, 4, 5, 8, 11, 20, 50, 100, 255, 256, -1, -9, -100, 1000, 2147483647, -2147483647 - 1};
    return data.flag() ? data.pick(kEdges) : data.inRange(-300, 300);
}

/// Sides stay small so that a run is quick, apart from those that must be refused.
std::int32_t side(FuzzInput& data) {
    constexpr std::int32_t kRefused[] = {-1, 0, 1, 3, 2147483647};
    const int kind = data.inRange(0, 9);
    // A few are larger than the window, which then scrolls.
    return kind == 0 ? data.pick(kRefused) : kind == 1 ? data.inRange(100, 260) : data.inRange(2, 48);
}

std::u16string path(FuzzInput& data) {
    static const std::string folder = [] {
        char name[] = "/tmp/orvane-steps-XXXXXX";
        return std::string(mkdtemp(name) != nullptr ? name : "/nonexistent");
    }();
    const std::string file = folder + "/" + std::to_string(data.inRange(0, 5));
    return {file.begin(), file.end()};
}

bool isNamed(const Member& member, std::string_view name) { return member.name == name; }

Value longArgument(FuzzInput& data, const Member& member, const Parameter& parameter) {
    const std::string_view name = parameter.name;
    if (name == "Width" || name == "Height") return side(data);
    if (isNamed(member, "SaveImage")) return data.inRange(-1, 5);
    if (isNamed(member, "PaintStatus") && data.inRange(0, 7) != 0) return data.inRange(0, 21);
    return number(data);
}

Value argument(FuzzInput& data, const Member& member, const Parameter& parameter) {
    switch (parameter.type) {
        case ValueType::Boolean:
            return data.flag();
        case ValueType::Byte:
            return data.read<std::uint8_t>();
        case ValueType::Long:
            return longArgument(data, member, parameter);
        case ValueType::Double:
            return data.flag() ? data.inRange(-100, 400) * 0.01 : data.read<double>();
        case ValueType::Color:
            return ColorValue{data.read<std::uint32_t>()};
        case ValueType::String:
            return path(data);
        case ValueType::ByteArray:
            return Value::Bytes(std::size_t(data.inRange(0, 48 * 48 * 4)), 0x5A);
        case ValueType::LongArray: {
            Value::Longs weights(data.flag() ? 9u : std::size_t(data.inRange(0, 26)));
            for (auto& weight : weights) weight = number(data);
            return weights;
        }
        case ValueType::None:
            break;
    }
    return {};
}

/// Mostly near the last position, sometimes anywhere, now and then absurd.
IntPoint nextMouse(FuzzInput& data, IntPoint last) {
    switch (data.inRange(0, 7)) {
        case 0:
            return {data.inRange(-40, 240), data.inRange(-40, 240)};
        case 1:
            if (data.inRange(0, 7) == 0) return {number(data), number(data)};
            [[fallthrough]];
        default:
            return {std::clamp(last.x, -1000, 1000) + data.inRange(-12, 12),
                    std::clamp(last.y, -1000, 1000) + data.inRange(-12, 12)};
    }
}

}  // namespace

RandomSteps::RandomSteps() : window(kFirstWidth, kFirstHeight), control(&window, &clipboard) {
    control.sinks.connect(*this);
    control.onSize(kFirstWidth, kFirstHeight);
}

void RandomSteps::step(FuzzInput& data) {
    // Without a picture, hardly anything happens.
    if (control.document.isEmpty() && data.inRange(0, 3) != 0) {
        return call("NewImage", InvokeKind::Method, {side(data), side(data)});
    }
    const int kind = data.inRange(0, 15);
    if (kind == 0) return call("PaintStatus", InvokeKind::Put, {data.inRange(0, 21)});
    if (kind == 1) return call("Accept", InvokeKind::Method, {});
    if (kind <= 10) return sendMessage(data);
    callMember(data);
}

void RandomSteps::call(const char* name, InvokeKind kind, std::initializer_list<Value> arguments) {
    Value result;
    invoke(control, *findMember(name), kind, {arguments.begin(), arguments.size()}, &result);
}

void RandomSteps::callMember(FuzzInput& data) {
    const auto table = memberTable();
    const Member& member = table[std::size_t(data.inRange(0, int(table.size()) - 1))];
    // A picture that goes at once is not drawn on.
    const bool replacesPicture = isNamed(member, "Empty") || isNamed(member, "LoadImage") ||
                                 isNamed(member, "LoadFromImageArray") || isNamed(member, "NewImage");
    if (replacesPicture && data.inRange(0, 7) != 0) return;
    std::vector<Value> arguments;
    InvokeKind kind = InvokeKind::Get;
    if (member.isMethod()) {
        kind = InvokeKind::Method;
        for (int i = 0; i < member.parameterCount(); ++i) {
            arguments.push_back(argument(data, member, member.parameters[i]));
        }
    } else if (member.kind == Member::Kind::Property && data.flag()) {
        kind = InvokeKind::Put;
        arguments.push_back(argument(data, member, {"value", member.type, ""}));
    }
    Value result;
    invoke(control, member, kind, arguments, &result);
}

void RandomSteps::sendMessage(FuzzInput& data) {
    const int message = data.inRange(0, 31);
    if (message == 0) {
        const IntSize size{data.inRange(0, 200), data.inRange(0, 200)};
        window.resize(size.width, size.height);
        control.onSize(size.width, size.height);
        return;
    }
    if (message == 1) return control.onDropFile(u"dropped");
    if (message <= 3) return control.onTimer();
    mouse_ = nextMouse(data, mouse_);
    window.movePointer(mouse_);
    if (message <= 8) {
        held_.left = true;
        control.onLeftDown(mouse_.x, mouse_.y);
    } else if (message <= 13) {
        held_.left = false;
        control.onLeftUp(mouse_.x, mouse_.y);
    } else if (message <= 15) {
        held_.right = !held_.right;
        if (held_.right) control.onRightDown(mouse_.x, mouse_.y);
    } else {
        control.onMouseMove(mouse_.x, mouse_.y, held_);
    }
}

void RandomSteps::onEvent(EventId, std::span<const Value>) {
    switch (++eventsHeard_ % 8) {
        case 1:
            return call("Undo", InvokeKind::Method, {});
        case 2:
            return call("PaintStatus", InvokeKind::Put, {eventsHeard_ % 22});
        case 3:
            return call("NewImage", InvokeKind::Method, {40, 30});
        case 4:
            return call("ZoomIn", InvokeKind::Method, {});
        case 5:
            control.sinks.disconnect(*this);
            control.sinks.connect(*this);
            return;
        case 6:
            return call("ResetTrack", InvokeKind::Method, {});
        case 7:
            return call("Empty", InvokeKind::Method, {});
        default:
            return;
    }
}

std::string RandomSteps::brokenInvariant() const {
    const std::string broken = orvane::brokenInvariant(control);
    if (!broken.empty()) return broken;
    if (control.mouseCaptured != window.isCaptured()) return "the capture is not what the control thinks";
    if (control.cursorKind != window.cursor()) return "the cursor is not what the control thinks";
    const bool animated =
        control.paintStatus == PaintMode::Spray || control.paintStatus == PaintMode::Selection;
    if (animated != window.isTimerRunning()) return "the timer does not follow the mode";
    return "";
}

}  // namespace orvane
