// Every filter that the Studio offers, applied with what its dialog proposes and with the ends of what it
// accepts.
#include "studio/filters/filter_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "support/test_control.h"

namespace orvane::studio {
namespace {

using Number = double FilterParameter::*;

std::string plainName(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        if (c != '-') plain += char(std::tolower(static_cast<unsigned char>(c)));
    }
    return plain;
}

const Member* memberOf(const Filter& filter) {
    const auto table = memberTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const Member& m) {
        return plainName(m.name) == plainName(filter.member);
    });
    return found != table.end() ? &*found : nullptr;
}

/// The arguments that a dialog would give with every number at one end, or as proposed.
std::vector<Value> argumentsOf(const Filter& filter, Number which) {
    std::vector<Value> arguments;
    for (const FilterParameter& parameter : filter.parameters) {
        const auto number = int(parameter.*which);
        switch (parameter.kind) {
            case ParameterKind::Real:
                arguments.emplace_back(parameter.*which);
                break;
            case ParameterKind::Colour:
                arguments.emplace_back(ColorValue{std::uint32_t(number)});
                break;
            case ParameterKind::ColourChannels:
                for (const int shift : {16, 8, 0}) arguments.emplace_back(number >> shift & 255);
                break;
            case ParameterKind::Choice: {
                const auto last = int(
                    std::count(parameter.choices, parameter.choices + std::strlen(parameter.choices), '|'));
                arguments.emplace_back(which == &FilterParameter::highest ? last : 0);
                break;
            }
            case ParameterKind::Kernel:
                arguments.emplace_back(std::vector<std::int32_t>{0, -1, 0, -1, 5, -1, 0, -1, 0});
                break;
            case ParameterKind::Length:
                arguments.emplace_back(std::max(number, int(parameter.lowest)));
                break;
            default:
                arguments.emplace_back(number);
        }
    }
    return arguments;
}

class StudioFilters : public testing::TestWithParam<const Filter*> {};

TEST_P(StudioFilters, MakeAStepWithTheirWholeRange) {
    const Filter& filter = *GetParam();
    const Member* member = memberOf(filter);
    ASSERT_NE(member, nullptr);
    for (const Number which :
         {&FilterParameter::initial, &FilterParameter::lowest, &FilterParameter::highest}) {
        TestControl control;
        control.call("NewImage", {40, 30});
        const std::vector<Value> arguments = argumentsOf(filter, which);
        ASSERT_TRUE(invoke(control.control(), *member, InvokeKind::Method, arguments, nullptr));
        EXPECT_TRUE(control.flag("UndoEnable"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, StudioFilters, testing::ValuesIn([] {
                             std::vector<const Filter*> all;
                             for (const Filter& filter : filters()) all.push_back(&filter);
                             return all;
                         }()),
                         [](const auto& tested) { return plainName(tested.param->member); });

TEST(StudioFilterTable, EveryLetterOfAMenuLeadsToOneFilter) {
    std::set<std::pair<FilterGroup, char>> letters;
    for (const Filter& filter : filters()) {
        const std::string label = filter.label;
        const auto letter = char(std::tolower(static_cast<unsigned char>(label.at(label.find('_') + 1))));
        EXPECT_TRUE(letters.emplace(filter.group, letter).second) << label;
    }
}

TEST(StudioFilterTable, ProposesWhatItAccepts) {
    for (const Filter& filter : filters()) {
        for (const FilterParameter& parameter : filter.parameters) {
            if (parameter.kind != ParameterKind::Whole && parameter.kind != ParameterKind::Real) continue;
            EXPECT_LE(parameter.lowest, parameter.initial) << filter.member << ": " << parameter.label;
            EXPECT_LE(parameter.initial, parameter.highest) << filter.member << ": " << parameter.label;
        }
    }
}

}  // namespace
}  // namespace orvane::studio
