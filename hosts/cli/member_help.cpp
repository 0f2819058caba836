#include "cli/member_help.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "cli/nearest_name.h"
#include "cli/refusal.h"
#include "cli/values.h"
#include "control/member_table.h"

namespace orvane::cli {
namespace {

constexpr const char* kFile = "FILE";
constexpr std::size_t kSignatureColumn = 38;

struct Row {
    std::string name, type, help;
};

std::string padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

/// Rows in three columns, each line indented.
std::string aligned(const std::vector<Row>& rows) {
    std::size_t name = 0, type = 0;
    for (const Row& row : rows) {
        name = std::max(name, row.name.size());
        type = std::max(type, row.type.size());
    }
    std::string text;
    for (const Row& row : rows) {
        text += "    " + padded(row.name, name) + "  " + padded(row.type, type) + "  " + row.help + "\n";
    }
    return text;
}

std::string parameterName(const Parameter& parameter) {
    return parameter.type == ValueType::ByteArray ? kFile : parameter.name;
}

std::vector<Row> parameterRows(std::span<const Parameter> parameters) {
    std::vector<Row> rows;
    for (const Parameter& parameter : parameters) {
        if (parameter.name == nullptr) break;
        std::string help = parameter.help;
        if (parameter.type == ValueType::ByteArray) help += "; a file of raw bytes, - for standard input";
        rows.push_back({parameterName(parameter), valueTypeName(parameter.type), help});
    }
    return rows;
}

std::vector<Row> parameterRows(const Member& member) {
    if (!member.isMethod()) {
        if (member.kind == Member::Kind::ReadOnlyProperty) return {};
        const std::string form = *member.range != '\0' ? member.range : expectedForm(member.type);
        return {{"VALUE", valueTypeName(member.type), form}};
    }
    std::vector<Row> rows = parameterRows(member.parameters);
    if (member.type == ValueType::ByteArray) {
        rows.push_back({kFile, "ByteArray", "where the raw bytes go, - for standard output"});
    }
    return rows;
}

/// The step as it is written.
std::string formOf(const Member& member) {
    const std::string name = member.name;
    if (member.kind == Member::Kind::ReadOnlyProperty) return name + "?";
    if (member.kind == Member::Kind::Property) return name + "=VALUE or " + name + "?";
    std::string form = name;
    for (const Row& row : parameterRows(member)) form += " " + row.name;
    return form;
}

const char* redrawText(Refresh refresh) {
    switch (refresh) {
        case Refresh::Never:
            return "a put does not redraw";
        case Refresh::WhenAccepted:
            return "a put redraws when the value is accepted";
        case Refresh::Always:
            return "a put redraws";
        case Refresh::InAnyTool:
            return "a put redraws while PaintStatus is 1 or more";
        case Refresh::InTextMode:
            return "a put redraws while PaintStatus is 14 (text)";
        case Refresh::InStampMode:
            return "a put redraws while PaintStatus is 16 (image stamp)";
        case Refresh::WhenScrollWindowShows:
            return "a put redraws while the overview panel shows";
    }
    return "";
}

std::string kindText(const Member& member) {
    switch (member.kind) {
        case Member::Kind::Method:
            return "method";
        case Member::Kind::Property:
            return "property";
        case Member::Kind::ReadOnlyProperty:
            return "property, read only";
    }
    return {};
}

std::string resultText(const Member& member) {
    switch (member.type) {
        case ValueType::None:
            return {};
        case ValueType::Boolean:
            return std::string("Boolean, printed as \"") + member.name +
                   ": true\" or false; false makes the exit status 1";
        case ValueType::ByteArray:
            return std::string("ByteArray, written to FILE; prints \"") + member.name +
                   ": null\" when there is none";
        default:
            return std::string(valueTypeName(member.type)) + ", printed after \"" + member.name + ": \"";
    }
}

std::string explained(const Member& member) {
    char identifier[32];
    std::snprintf(identifier, sizeof identifier, "%d (0x%02X)", member.id, unsigned(member.id));
    std::vector<Row> facts = {{"Kind", "", kindText(member)}};
    if (member.isMethod() && member.type != ValueType::None)
        facts.push_back({"Result", "", resultText(member)});
    if (!member.isMethod()) {
        facts.push_back({"Type", "", std::string(valueTypeName(member.type))});
        if (*member.range != '\0') facts.push_back({"Value", "", member.range});
    }
    if (member.kind == Member::Kind::Property) {
        facts.push_back({"Written as", "", expectedForm(member.type)});
        facts.push_back({"Redraw", "", redrawText(member.rule.refresh)});
    }
    facts.push_back({"Dispatch identifier", "", identifier});

    const auto parameters = member.isMethod() ? parameterRows(member) : std::vector<Row>();
    return formOf(member) + "\n\n    " + member.help + "\n\n" + aligned(parameters) +
           (parameters.empty() ? "" : "\n") + aligned(facts);
}

}  // namespace

std::string usageOf(const Member& member) {
    return "  usage: " + formOf(member) + "\n" + aligned(parameterRows(member));
}

std::string formOf(const WindowStep& step) {
    std::string form = step.name;
    if (step.parameterUse == ParameterUse::PairsToEnd) return form + " X1 Y1 X2 Y2 [X Y ...] @end";
    const bool optional = step.parameterUse == ParameterUse::LastOptional;
    for (const Row& row : parameterRows(step.parameters)) {
        form += optional ? " [" + row.name + "]" : " " + row.name;
    }
    return form;
}

std::string usageOf(const WindowStep& step) {
    return "  usage: " + formOf(step) + "\n" + aligned(parameterRows(step.parameters));
}

std::string signatureOf(const Member& member) {
    const std::string type = valueTypeName(member.type);
    if (member.kind == Member::Kind::Property) return std::string(member.name) + "=" + type;
    const bool hasResult = member.type != ValueType::None && member.type != ValueType::ByteArray;
    return formOf(member) + (hasResult ? " -> " + type : "");
}

std::string membersPage() {
    std::string page;
    for (const Member& member : memberTable()) {
        page += padded(signatureOf(member), kSignatureColumn) + " " + member.help + "\n";
    }
    return page;
}

std::string helpOn(const Word& name) {
    if (const Member* member = findMember(name.text)) return explained(*member);
    if (const WindowStep* step = findWindowStep(name.text)) {
        return usageOf(*step).substr(2) + "\n    " + step->help + "\n";
    }
    const std::string_view nearest = nearestStepName(name.text);
    refuse(name, nearest.empty()
                     ? "is neither a member nor a step; \"orvane members\" lists the members"
                     : "is neither a member nor a step; did you mean " + std::string(nearest) + "?");
}

}  // namespace orvane::cli
