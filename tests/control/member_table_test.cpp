#include "control/member_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace orvane {
namespace {

TEST(MemberTable, HasEveryMemberOnceAndInOrder) {
    const auto table = memberTable();
    ASSERT_EQ(table.size(), 113u);
    std::set<std::string> names;
    int previous = 0;
    for (const Member& member : table) {
        EXPECT_GT(member.id, previous) << member.name;
        previous = member.id;
        EXPECT_TRUE(names.insert(member.name).second) << member.name;
        EXPECT_EQ(findMember(member.id), &member);
        EXPECT_EQ(findMember(std::string_view(member.name)), &member);
    }
    // Identifiers that hosts have stored never move; the gaps name no member.
    const struct {
        int id;
        const char* name;
    } fixed[] = {
        {0x01, "LoadImage"}, {0x1B, "SaveImage"},         {0x2D, "PaintStatus"},     {0x3E, "Glow"},
        {0x4D, "Twirl"},     {0x58, "NewImage"},          {0x63, "SetupFontByName"}, {0x70, "BrushColor2"},
        {0x75, "FontSize"},  {0x77, "LoadFromImageArray"}};
    for (const auto& row : fixed) EXPECT_STREQ(findMember(row.id)->name, row.name);
    for (int gap : {0, 0x20, 0x21, 0x31, 0x33, 0x38, 0x6E, 0x78, -1})
        EXPECT_EQ(findMember(gap), nullptr) << gap;
    EXPECT_EQ(findMember("blur"), nullptr) << "case counts";
}

TEST(MemberTable, EveryRowIsFitToBeShown) {
    for (const Member& member : memberTable()) {
        EXPECT_TRUE(member.isMethod() ? member.call != nullptr : member.get != nullptr) << member.name;
        const std::string help = member.help;
        EXPECT_FALSE(help.empty()) << member.name;
        EXPECT_EQ(help.back(), '.') << member.name;
        for (int i = 0; i < member.parameterCount(); ++i) {
            EXPECT_STRNE(member.parameters[i].help, "") << member.name;
            EXPECT_NE(member.parameters[i].type, ValueType::None) << member.name;
        }
        if (!member.isMethod()) {
            EXPECT_NE(member.type, ValueType::None) << member.name;
            EXPECT_EQ(member.parameterCount(), 0) << member.name;
        }
        EXPECT_EQ(member.put != nullptr, member.kind == Member::Kind::Property) << member.name;
    }
}

}  // namespace
}  // namespace orvane
