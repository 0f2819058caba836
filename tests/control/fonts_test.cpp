#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/test_control.h"

namespace orvane {
namespace {

TEST(ControlFonts, BeginWithArial) {
    TestControl control;
    EXPECT_GT(control.number("FontCount"), 1);
    EXPECT_EQ(control.get("FontName").string(), u"Arial");
    EXPECT_EQ(control.redraws(), 0);
}

TEST(ControlFonts, EveryIndexHasItsName) {
    TestControl control;
    const int count = control.number("FontCount");
    for (int i = 0; i < count; ++i) {
        control.put("FontIndex", i);
        const std::u16string name(control.get("FontName").string());
        EXPECT_FALSE(name.empty()) << i;
        control.put("FontIndex", -1);
        EXPECT_TRUE(control.call("SetupFontByName", {name}).boolean());
        EXPECT_EQ(control.number("FontIndex"), i);
    }
}

TEST(ControlFonts, OutsideTheListThereIsNoName) {
    TestControl control;
    const int count = control.number("FontCount");
    for (const int index : {-1, count, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        control.put("FontIndex", index);
        EXPECT_EQ(control.redraws(), 1);
        EXPECT_EQ(control.number("FontIndex"), index);
        EXPECT_TRUE(control.get("FontName").isNone()) << index;
    }
}

TEST(ControlFonts, AreChosenByNameInAnyCase) {
    TestControl control;
    const int arial = control.number("FontIndex");
    const struct {
        const char16_t* name;
        bool found;
    } rows[] = {{u"arial", true},        {u"ARIAL", true}, {u"Aria", false}, {u"Arial ", false},
                {u"Arial Narro", false}, {u"", false},     {u"*", false}};
    for (const auto& row : rows) {
        for (const int before : {0, 77}) {
            control.put("FontIndex", before);
            control.redraws();
            EXPECT_EQ(control.call("SetupFontByName", {row.name}).boolean(), row.found);
            EXPECT_EQ(control.number("FontIndex"), row.found ? arial : before);
            EXPECT_EQ(control.redraws(), 0);
        }
    }
    EXPECT_FALSE(control.call("SetupFontByName", {Value()}).boolean()) << "no name at all";
}

TEST(ControlFonts, BelongToOneControl) {
    TestControl one, other;
    EXPECT_TRUE(one.call("SetupFontByName", {u"Courier New"}).boolean());
    EXPECT_EQ(one.get("FontName").string(), u"Courier New");
    EXPECT_EQ(other.get("FontName").string(), u"Arial");
}

}  // namespace
}  // namespace orvane
