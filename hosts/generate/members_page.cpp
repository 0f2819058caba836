#include <string>

#include "control/member_table.h"
#include "names.h"
#include "writers.h"

namespace orvane {
namespace {

std::string signature(const Member& member) {
    std::string text = "`" + std::string(member.name);
    for (int i = 0; i < member.parameterCount(); ++i) {
        text += std::string(i == 0 ? "(" : ", ") + valueTypeName(member.parameters[i].type) + " " +
                member.parameters[i].name;
    }
    if (member.parameterCount() > 0) text += ")";
    text += "`";
    if (member.type != ValueType::None)
        text += std::string(member.isMethod() ? " → " : ": ") + valueTypeName(member.type);
    return text;
}

const char* redraws(Refresh refresh) {
    switch (refresh) {
        case Refresh::Never:
            return "never";
        case Refresh::WhenAccepted:
            return "when accepted";
        case Refresh::Always:
            return "always";
        case Refresh::InAnyTool:
            return "while a tool is active";
        case Refresh::InTextMode:
            return "in text mode";
        case Refresh::InStampMode:
            return "in image stamp mode";
        case Refresh::WhenScrollWindowShows:
            return "while the scroll window is visible";
    }
    return "";
}

std::string methodRow(const Member& member) {
    std::string text = "| " + hexId(member.id) + " | " + signature(member) + " | " + member.help;
    for (int i = 0; i < member.parameterCount(); ++i) {
        text += "<br>`" + std::string(member.parameters[i].name) + "`: " + member.parameters[i].help;
    }
    return text + " |\n";
}

std::string propertyRow(const Member& member) {
    const bool canPut = member.kind == Member::Kind::Property;
    return "| " + hexId(member.id) + " | " + signature(member) + " | " + (canPut ? "get, put" : "get") +
           " | " + member.help + " | " + member.range + " | " + (canPut ? redraws(member.rule.refresh) : "") +
           " |\n";
}

}  // namespace

std::string membersPage() {
    std::string methods, properties;
    for (const Member& member : memberTable()) {
        if (member.isMethod()) {
            methods += methodRow(member);
        } else {
            properties += propertyRow(member);
        }
    }
    return "# Members of `IVistrel`\n\n"
           "Made from the member table by `orvane_generate`; do not edit. The numbers are the dispatch "
           "identifiers, which\n"
           "hosts may store. No member fails: what it could not do shows in its result or as unchanged "
           "state.\n\n"
           "## Methods\n\n| Id | Member | What it does |\n|---|---|---|\n" +
           methods +
           "\n## Properties\n\nA put outside the range is ignored, unless the range says otherwise.\n\n"
           "| Id | Property | Access | Meaning | Range | A put redraws |\n|---|---|---|---|---|---|\n" +
           properties;
}

}  // namespace orvane
