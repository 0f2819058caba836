// A sequence of member calls, puts, gets and window messages, taken from the input; every invariant is tested
// after each.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include <orvane/headless_window.h>

#include "control/dispatch.h"
#include "control/member_table.h"
#include "fuzz_input.h"
#include "support/invariants.h"

namespace {

using namespace orvane;

/// Calls back into the control from inside its events.
class CallingBack final : public EventSink {
 public:
    explicit CallingBack(VistrelControl& control) : control_(control) {}
    void onEvent(EventId, std::span<const Value>) override {
        invoke(control_, 0x04, InvokeKind::Method, {}, nullptr);
    }

 private:
    VistrelControl& control_;
};

/// Numbers near the edges of what members accept, and any others.
std::int32_t number(FuzzInput& data) {
    constexpr std::int32_t kEdges[] = {
        0, 1, 2, 3, 4, 5, 8, 11, 20, 50, 100, 255, 256, -1, -9, -100, 1000, 2147483647, -2147483647 - 1};
    return data.flag() ? data.pick(kEdges) : data.inRange(-300, 300);
}

/// Sides stay small so that a run is quick, apart from those that must be refused.
std::int32_t side(FuzzInput& data) {
    constexpr std::int32_t kRefused[] = {-1, 0, 1, 3, 2147483647};
    return data.inRange(0, 9) == 0 ? data.pick(kRefused) : data.inRange(2, 48);
}

std::u16string path(FuzzInput& data) {
    static const std::string folder = [] {
        char name[] = "/tmp/orvane-members-XXXXXX";
        return std::string(mkdtemp(name) != nullptr ? name : "/nonexistent");
    }();
    const std::string file = folder + "/" + std::to_string(data.inRange(0, 5));
    return {file.begin(), file.end()};
}

Value argument(FuzzInput& data, const Member& member, const Parameter& parameter) {
    const std::string name = parameter.name;
    switch (parameter.type) {
        case ValueType::Boolean:
            return data.flag();
        case ValueType::Byte:
            return data.read<std::uint8_t>();
        case ValueType::Long:
            return name == "Width" || name == "Height"       ? side(data)
                   : std::string(member.name) == "SaveImage" ? data.inRange(-1, 5)
                                                             : number(data);
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

void step(FuzzInput& data, VistrelControl& control) {
    if (data.inRange(0, 15) == 0) {
        control.onSize(data.inRange(0, 200), data.inRange(0, 200));
        control.onDropFile(u"dropped");
        return;
    }
    const auto table = memberTable();
    const Member& member = table[std::size_t(data.inRange(0, int(table.size()) - 1))];
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzInput data(bytes, size);
    HeadlessWindow window;
    VistrelControl control(&window);
    CallingBack sink(control);
    control.sinks.connect(sink);
    control.onSize(120, 90);
    for (int steps = 0; !data.isExhausted() && steps < 60; ++steps) {
        step(data, control);
        const std::string broken = brokenInvariant(control);
        if (!broken.empty()) {
            std::fprintf(stderr, "%s\n", broken.c_str());
            std::abort();
        }
    }
    return 0;
}
