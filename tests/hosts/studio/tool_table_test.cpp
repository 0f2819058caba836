#include "studio/tools/tool_table.h"

#include <glib.h>
#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>

#include "control/paint_mode.h"
#include "studio/commands/command_table.h"
#include "studio/tools/hatch_names.h"

namespace orvane::studio {
namespace {

TEST(ToolTable, HasEveryModeOfTheControlOnce) {
    std::multiset<int> modes;
    for (const Tool& tool : tools()) modes.insert(tool.mode);
    for (int mode = PaintMode::None; mode <= PaintMode::TrackPoint; ++mode) {
        EXPECT_EQ(modes.count(mode), 1U) << mode;
        const Tool* tool = toolOfMode(mode);
        ASSERT_NE(tool, nullptr) << mode;
        EXPECT_EQ(tool->mode, mode);
    }
    EXPECT_EQ(modes.size(), std::size_t(PaintMode::TrackPoint + 1));
    EXPECT_EQ(toolOfMode(PaintMode::None - 1), nullptr);
    EXPECT_EQ(toolOfMode(PaintMode::TrackPoint + 1), nullptr);
}

TEST(ToolTable, KeysLeadToOneThing) {
    std::set<std::string> keys;
    for (const Tool& tool : tools()) {
        EXPECT_TRUE(std::isupper(static_cast<unsigned char>(tool.key)) ||
                    std::isdigit(static_cast<unsigned char>(tool.key)))
            << tool.label;
        EXPECT_TRUE(
            keys.insert(std::string(1, char(std::tolower(static_cast<unsigned char>(tool.key))))).second)
            << tool.label << " shares its key";
    }
    for (const Command& command : commands()) {
        char** accelerators = keysOf(command);
        for (char** key = accelerators; *key != nullptr; ++key) {
            std::string lower(*key);
            for (char& c : lower) c = char(std::tolower(static_cast<unsigned char>(c)));
            EXPECT_EQ(keys.count(lower), 0U) << command.name;
        }
        g_strfreev(accelerators);
    }
}

TEST(CommandTable, EveryLetterOfAMenuLeadsToOneCommand) {
    std::set<std::pair<Menu, char>> letters{{Menu::File, 'r'}, {Menu::View, 'r'}};  // Open Recent, Appearance
    for (const Command& command : commands()) {
        const std::string label = command.label;
        const auto letter = char(std::tolower(static_cast<unsigned char>(label.at(label.find('_') + 1))));
        EXPECT_TRUE(letters.emplace(command.menu, letter).second) << label;
    }
}

TEST(ToolTable, WordsAndIconsTellToolsApart) {
    std::set<std::string> labels, icons;
    for (const Tool& tool : tools()) {
        EXPECT_TRUE(labels.insert(tool.label).second) << tool.label;
        EXPECT_TRUE(icons.insert(tool.iconName).second) << tool.iconName;
        EXPECT_EQ(std::string(tool.hint).find('\n'), std::string::npos) << tool.label;
        EXPECT_FALSE(std::string(tool.hint).empty()) << tool.label;
    }
}

// The palette begins a group where the group changes, so a group that is torn apart would show twice.
TEST(ToolTable, GroupsStandTogether) {
    std::set<ToolGroup> ended;
    const Tool* previous = nullptr;
    for (const Tool& tool : tools()) {
        if (previous != nullptr && previous->group != tool.group) ended.insert(previous->group);
        EXPECT_EQ(ended.count(tool.group), 0U) << tool.label;
        previous = &tool;
    }
}

// Enter draws what these leave behind, and the bar has the button for it.
TEST(ToolTable, OffersToDrawWhereSomethingIsPlaced) {
    const std::set<int> placing{PaintMode::Line,      PaintMode::Polyline, PaintMode::Curve,
                                PaintMode::Bezier,    PaintMode::Polygon,  PaintMode::ClosedCurve,
                                PaintMode::Arc,       PaintMode::Pie,      PaintMode::Ellipse,
                                PaintMode::Rectangle, PaintMode::Text,     PaintMode::ImageStamp};
    for (const Tool& tool : tools()) {
        EXPECT_EQ((tool.options & ToolOptions::Draw) != 0, placing.count(tool.mode) == 1) << tool.label;
    }
}

TEST(HatchNames, TellTheControlsPatternsApart) {
    EXPECT_EQ(hatchNames().size(), 53U);
    std::set<std::string> names(hatchNames().begin(), hatchNames().end());
    EXPECT_EQ(names.size(), hatchNames().size());
}

}  // namespace
}  // namespace orvane::studio
