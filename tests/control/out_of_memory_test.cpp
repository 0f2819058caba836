#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include <orvane/control_base.h>
#include "platform/pixel_memory.h"
#include "support/failing_allocator.h"
#include "support/invariants.h"

#include "support/test_control.h"

namespace orvane {
namespace {

struct Command {
    const char* name;
    std::vector<Value> arguments;
};

/// Every implemented method with usual arguments, on a small picture, then every file format there and back.
std::vector<Command> script(const std::u16string& folder) {
    std::vector<Command> commands = {{"NewImage", {96, 72}}};
    for (const Member& member : memberTable()) {
        const std::string name = member.name;
        if (!member.isMethod() || name == "NewImage" || name == "Empty" || name == "LoadImage" ||
            name == "SaveImage" || name == "LoadFromImageArray") {
            continue;
        }
        Command command{member.name, {}};
        for (int i = 0; i < member.parameterCount(); ++i) {
            switch (member.parameters[i].type) {
                case ValueType::Double:
                    command.arguments.emplace_back(1.5);
                    break;
                case ValueType::Color:
                    command.arguments.emplace_back(ColorValue{0x804020});
                    break;
                case ValueType::Long:
                    command.arguments.emplace_back(3);
                    break;
                case ValueType::LongArray:
                    command.arguments.emplace_back(Value::Longs(9, 1));
                    break;
                default:
                    command.arguments.emplace_back(u"text");
                    break;
            }
        }
        commands.push_back(std::move(command));
    }
    for (int type = 0; type <= 4; ++type) {
        const std::u16string path = folder + u"/" + std::u16string(1, char16_t(u'0' + type));
        commands.push_back({"SaveImage", {path, type}});
        commands.push_back({"LoadImage", {path}});
    }
    commands.push_back({"LoadFromImageArray", {Value::Bytes(12 * 10 * 4, 200), 12, 10}});
    return commands;
}

/// Runs the command with its n-th allocation failing (and some more after it) on a control that was set up in
/// peace. Answers whether an allocation was refused, so that the caller knows when to stop.
bool survives(const Command& command, long n, long more) {
    TestControl control(60, 40);
    control.call("NewImage", {96, 72});
    control.document().pushSnapshot();
    control.document().lockCurrent().at(2, 2) = 0x80123456u;
    const std::vector<Value> arguments = command.arguments;
    const Member& member = *findMember(command.name);

    FailingAllocator::arm(n, more);
    {
        Value result;
        invoke(control.control(), member, InvokeKind::Method, arguments, &result);
    }
    const bool refused = FailingAllocator::disarm();

    EXPECT_EQ(brokenInvariant(control.control()), "") << command.name << ", allocation " << n;
    if (!control.document().isEmpty()) {
        EXPECT_TRUE(control.call("GetImageArray").type() == ValueType::ByteArray) << command.name;
        control.call("Undo");
        EXPECT_EQ(brokenInvariant(control.control()), "") << command.name << ", then undo";
    }
    return refused;
}

/// Lets every allocation of the command fail in turn. Answers whether more blocks are left than before; there
/// may be fewer, since what fonts keep they drop in their own time.
bool leavesBlocks(const Command& command) {
    trimPixelMemory();
    const long aliveBefore = FailingAllocator::blocksAlive();
    long n = 1;
    // The allocator stays out of memory from the n-th on, and then only for that one allocation.
    for (; survives(command, n, 1'000'000); ++n) trimPixelMemory();
    for (long k = 1; k < n; ++k) survives(command, k, 0);
    trimPixelMemory();
    return FailingAllocator::blocksAlive() > aliveBefore;
}

class OutOfMemory : public ::testing::Test {
 protected:
    void SetUp() override {
        char name[] = "/tmp/orvane-memory-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        folder_ = name;
    }
    void TearDown() override {
        for (int type = 0; type <= 4; ++type) std::remove((folder_ + "/" + std::to_string(type)).c_str());
        EXPECT_EQ(rmdir(folder_.c_str()), 0) << "a save left something behind";
    }
    std::u16string folder16() const { return {folder_.begin(), folder_.end()}; }
    std::string folder_;
};

TEST_F(OutOfMemory, AnyFailingAllocationOfAnyCommandIsSurvived) {
    for (const Command& command : script(folder16())) {
        ASSERT_FALSE(survives(command, 0, 0));  // in peace once: files to load, tables built on first use
        // Pango reads the fonts in a thread, which may be at it meanwhile. What leaks does so every time.
        EXPECT_FALSE(leavesBlocks(command) && leavesBlocks(command)) << command.name << " leaks";
    }
}

TEST_F(OutOfMemory, ControlsAndWindowsAreMadeOrNot) {
    for (long n = 1;; ++n) {
        FailingAllocator::arm(n);
        {
            HeadlessWindow window;
            ControlBase control(window);
            control.onSize(50, 40);
            control.onPaint();
        }
        if (!FailingAllocator::disarm()) break;
    }
}

}  // namespace
}  // namespace orvane
