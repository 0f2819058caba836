#include "control/dispatch.h"

#include <gtest/gtest.h>

#include "support/test_control.h"

namespace orvane {
namespace {

using Longs = Value::Longs;

TEST(Dispatch, RefusesWrongCallsBeforeAnythingHappens) {
    TestControl control;
    control.call("NewImage", {40, 30});
    const Value text(u"x");
    const struct {
        const char* name;
        InvokeKind kind;
        std::vector<Value> arguments;
        DispatchStatus status;
        int argument;
    } rows[] = {
        {"NewImage", InvokeKind::Method, {50}, DispatchStatus::ArgumentCount, -1},
        {"NewImage", InvokeKind::Method, {50, 50, 50}, DispatchStatus::ArgumentCount, -1},
        {"NewImage", InvokeKind::Method, {50, text}, DispatchStatus::ArgumentType, 1},
        {"NewImage", InvokeKind::Method, {50.5, 50}, DispatchStatus::ArgumentType, 0},
        {"NewImage", InvokeKind::Get, {}, DispatchStatus::MemberNotFound, -1},
        {"PenWidth", InvokeKind::Method, {3}, DispatchStatus::MemberNotFound, -1},
        {"PenWidth", InvokeKind::Put, {}, DispatchStatus::ArgumentCount, -1},
        {"PenWidth", InvokeKind::Put, {text}, DispatchStatus::ArgumentType, 0},
        {"PenWidth", InvokeKind::Put, {Value()}, DispatchStatus::ArgumentType, 0},
        {"PenTransparency", InvokeKind::Put, {256}, DispatchStatus::ArgumentRange, 0},
        {"PenTransparency", InvokeKind::Put, {-1}, DispatchStatus::ArgumentRange, 0},
        {"ImageWidth", InvokeKind::Put, {5}, DispatchStatus::MemberNotFound, -1},
        {"UserEffect", InvokeKind::Method, {text}, DispatchStatus::ArgumentType, 0},
    };
    control.redraws();
    for (const auto& row : rows) {
        const DispatchResult result =
            invoke(control.control(), *findMember(row.name), row.kind, row.arguments, nullptr);
        EXPECT_EQ(result.status, row.status) << row.name;
        EXPECT_EQ(result.argument, row.argument) << row.name;
    }
    EXPECT_EQ(invoke(control.control(), 0x20, InvokeKind::Method, {}, nullptr).status,
              DispatchStatus::MemberNotFound);
    EXPECT_EQ(control.number("ImageWidth"), 40);
    EXPECT_EQ(control.number("PenWidth"), 1);
    EXPECT_EQ(control.redraws(), 0);
}

TEST(Dispatch, ConvertsWhereNothingIsLost) {
    TestControl control;
    control.call("NewImage", {std::uint8_t{40}, 30});
    EXPECT_EQ(control.number("ImageWidth"), 40);
    control.put("UseImageMaskColor", 7);
    EXPECT_TRUE(control.flag("UseImageMaskColor"));
    control.put("PenColor", 0x123456);
    EXPECT_EQ(control.colour("PenColor"), 0x123456u);
    control.put("BackColor1", static_cast<std::int32_t>(0xFF123456u));
    EXPECT_EQ(control.colour("BackColor1"), 0x123456u);
    control.put("FontSize", 30);
    EXPECT_EQ(control.get("FontSize").byte(), 30);
    control.put("PenWidth", true);  // automation's true is -1
    EXPECT_EQ(control.number("PenWidth"), 1);
}

TEST(Dispatch, EveryMemberAnswersOnAnEmptyAndOnAFilledControl) {
    for (bool filled : {false, true}) {
        for (const Member& member : memberTable()) {
            TestControl control;
            if (filled) control.call("NewImage", {20, 16});
            std::vector<Value> arguments;
            for (int i = 0; i < member.parameterCount(); ++i) {
                switch (member.parameters[i].type) {
                    case ValueType::Double:
                        arguments.emplace_back(1.0);
                        break;
                    case ValueType::Color:
                        arguments.emplace_back(ColorValue{1});
                        break;
                    case ValueType::Long:
                        arguments.emplace_back(3);
                        break;
                    default:
                        arguments.emplace_back();
                        break;  // null strings and arrays
                }
            }
            const InvokeKind kind = member.isMethod() ? InvokeKind::Method : InvokeKind::Get;
            Value result;
            EXPECT_TRUE(invoke(control.control(), member, kind, arguments, &result)) << member.name;
            const bool canBeNull = member.type == ValueType::String || member.type == ValueType::ByteArray ||
                                   member.type == ValueType::LongArray;
            EXPECT_TRUE(result.type() == member.type || (canBeNull && result.isNone())) << member.name;
        }
    }
}

TEST(LoadFromImageArray, NullArrayTouchesNothingAndAShortOneEmpties) {
    TestControl control;
    control.call("NewImage", {20, 16});
    control.redraws();
    EXPECT_FALSE(control.call("LoadFromImageArray", {Value(), 2, 2}).boolean());
    EXPECT_EQ(control.number("ImageWidth"), 20);
    EXPECT_EQ(control.redraws(), 0);

    const std::vector<std::uint8_t> bytes(16, 9);
    EXPECT_TRUE(control.call("LoadFromImageArray", {Value::ByteSpan(bytes), 2, 2}).boolean());
    EXPECT_EQ(control.redraws(), 1);
    EXPECT_EQ(control.call("GetImageArray").takeBytes(), bytes);
    EXPECT_FALSE(control.call("LoadFromImageArray", {Value::ByteSpan(bytes), 3, 2}).boolean());
    EXPECT_EQ(control.redraws(), 1) << "a failed load redraws as well";
    EXPECT_TRUE(control.flag("IsEmpty"));
    EXPECT_TRUE(control.call("GetImageArray").isNone());
}

TEST(LoadImage, FailureEmptiesAndDoesNotRedraw) {
    for (const char16_t* path : {u"/nowhere/at/all.png", u"", u"/", u"/\xD800.png"}) {
        TestControl control;
        control.call("NewImage", {20, 16});
        control.redraws();
        EXPECT_FALSE(control.call("LoadImage", {path}).boolean());
        EXPECT_TRUE(control.flag("IsEmpty"));
        EXPECT_EQ(control.redraws(), 0);
    }
}

}  // namespace
}  // namespace orvane
