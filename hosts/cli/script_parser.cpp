#include "cli/script_parser.h"

#include <algorithm>

#include "base/unicode.h"
#include "cli/member_help.h"
#include "cli/picture_formats.h"
#include "cli/raw_files.h"
#include "cli/step_refusals.h"
#include "cli/values.h"
#include "control/member_table.h"

namespace orvane::cli {
namespace {

constexpr std::string_view kEndOfPairs = "@end";

bool isNamePart(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// "PenWidth" of "PenWidth=3".
std::string_view namePart(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isNamePart);
    return text.substr(0, std::size_t(end - text.begin()));
}

/// Whether the word opens a step, so that an argument before it is missing rather than wrong.
bool opensStep(std::string_view text) {
    return findMember(namePart(text)) != nullptr || findWindowStep(text) != nullptr || text == "-f" ||
           text == "-o" || text == "--force";
}

FileUse fileUseOf(const Member& member) {
    const std::string_view name = member.name;
    return name == "LoadImage" || name == "DrawImage" ? FileUse::ReadsPicture : FileUse::None;
}

std::size_t countOf(std::span<const Parameter> parameters) {
    const auto end = std::find_if(parameters.begin(), parameters.end(),
                                  [](const Parameter& parameter) { return parameter.name == nullptr; });
    return std::size_t(end - parameters.begin());
}

class ScriptParser {
 public:
    void parseLine(std::span<const Word> words) {
        lineStart_ = script_.steps.size();
        while (!words.empty()) words = words.subspan(parseStep(words));
    }

    Script take() { return std::move(script_); }

 private:
    /// Reads the step at the beginning of `words`; how many words it has.
    std::size_t parseStep(std::span<const Word> words) {
        const Word& word = words[0];
        if (word.text == "-f") return parseStepFile(words);
        if (word.text == "-o") return parseSaveOption(words);
        if (word.text == "--force") {
            script_.force = true;
            return 1;
        }
        if (const WindowStep* step = findWindowStep(word.text)) return parseWindowStep(words, *step);

        const std::string_view name = namePart(word.text);
        const std::string_view rest = std::string_view(word.text).substr(name.size());
        const Member* member = findMember(name);
        const bool isMemberStep = rest.empty() || rest == "?" || rest[0] == '=';
        if (member == nullptr || !isMemberStep) {
            const bool afterStep = script_.steps.size() > lineStart_;
            if (afterStep && parseValue(word.text, ValueType::Double))
                refuseSurplus(word, script_.steps.back());
            refuseUnknown(word, isMemberStep ? name : word.text);
        }
        if (rest.empty()) return parseCall(words, *member);
        return rest == "?" ? parseGet(word, *member) : parsePut(word, *member, rest.substr(1));
    }

    std::size_t parseCall(std::span<const Word> words, const Member& member) {
        if (!member.isMethod()) refuse(words[0], "is a property, not a method\n" + usageOf(member));
        Step& step = addStep(words[0]);
        step.member = &member;
        step.fileUse = fileUseOf(member);
        const std::size_t count = std::size_t(member.parameterCount());
        const bool writesBytes = member.type == ValueType::ByteArray;
        const std::size_t expected = count + (writesBytes ? 1 : 0);
        for (std::size_t i = 0; i < expected; ++i) {
            if (i + 1 >= words.size()) refuseCount(step, expected, i);
            const Word& word = words[i + 1];
            const bool isResult = i == count;
            if (isResult || member.parameters[i].type == ValueType::ByteArray) {
                step.fileUse = isResult ? FileUse::WritesBytes : FileUse::ReadsBytes;
                setFile(step, word);
                if (!isResult) step.arguments.emplace_back();
            } else {
                if (step.fileUse == FileUse::ReadsPicture) setFile(step, word);
                step.arguments.push_back(argument(step, word, member.parameters[i], expected, i));
            }
        }
        return expected + 1;
    }

    std::size_t parseGet(const Word& word, const Member& member) {
        if (member.isMethod()) refuse(word, "gets a property, but this is a method\n" + usageOf(member));
        Step& step = addStep(word);
        step.member = &member;
        step.kind = InvokeKind::Get;
        return 1;
    }

    std::size_t parsePut(const Word& word, const Member& member, std::string_view text) {
        if (member.isMethod()) refuse(word, "puts a property, but this is a method\n" + usageOf(member));
        if (member.kind == Member::Kind::ReadOnlyProperty) {
            refuse(word, "puts a property that can only be read\n" + usageOf(member));
        }
        auto value = parseValue(text, member.type);
        if (!value) {
            refuse(word, "puts " + inQuotes(text) + ", which is not " + expectedForm(member.type) + "\n" +
                             usageOf(member));
        }
        Step& step = addStep(word);
        step.member = &member;
        step.kind = InvokeKind::Put;
        step.arguments.push_back(std::move(*value));
        return 1;
    }

    std::size_t parseWindowStep(std::span<const Word> words, const WindowStep& windowStep) {
        Step& step = addStep(words[0]);
        step.windowStep = &windowStep;
        step.fileUse = windowStep.fileUse;
        if (windowStep.parameterUse == ParameterUse::PairsToEnd) return parsePairsToEnd(words, step);
        const std::size_t count = countOf(windowStep.parameters);
        for (std::size_t i = 0; i < count; ++i) {
            const bool optional = windowStep.parameterUse == ParameterUse::LastOptional && i + 1 == count;
            if (optional && (i + 1 >= words.size() || !parseValue(words[i + 1].text, ValueType::Long)))
                return i + 1;
            if (i + 1 >= words.size()) refuseCount(step, count, i);
            addWindowArgument(step, words[i + 1], windowStep.parameters[i], count, i);
        }
        if (step.fileUse == FileUse::WritesPicture) (void)writtenFormat(step.file);
        return count + 1;
    }

    std::size_t parsePairsToEnd(std::span<const Word> words, Step& step) {
        constexpr std::size_t kFewest = 4;
        std::size_t count = 0;
        while (count + 1 < words.size() && words[count + 1].text != kEndOfPairs) {
            const Parameter& parameter = step.windowStep->parameters[count % 2];
            if (opensStep(words[count + 1].text)) break;
            addWindowArgument(step, words[count + 1], parameter, kFewest, count);
            ++count;
        }
        if (count + 1 >= words.size() || words[count + 1].text != kEndOfPairs) {
            refuse(words[0], "is not closed by " + std::string(kEndOfPairs) + "\n" + usageOf(step));
        }
        if (count < kFewest) refuseCount(step, kFewest, count);
        if (count % 2 != 0) refuse(words[count], "has no Y beside it\n" + usageOf(step));
        return count + 2;
    }

    void addWindowArgument(Step& step, const Word& word, const Parameter& parameter, std::size_t expected,
                           std::size_t given) {
        const WindowStep& windowStep = *step.windowStep;
        Value value = argument(step, word, parameter, expected, given);
        const bool outside = value.type() == ValueType::Long &&
                             (value.number() < windowStep.lowest || value.number() > windowStep.highest);
        if (outside) {
            refuse(word, "is not from " + std::to_string(windowStep.lowest) + " to " +
                             std::to_string(windowStep.highest) + "\n" + usageOf(step));
        }
        if (step.fileUse != FileUse::None) setFile(step, word);
        step.arguments.push_back(std::move(value));
    }

    std::size_t parseSaveOption(std::span<const Word> words) {
        if (words.size() < 2) refuseAt(words[0].place, "-o takes the path of the picture to write");
        const Word& file = words[1];
        const ImageFormat format = writtenFormat(file);
        auto path = utf16FromUtf8(file.text);
        if (!path) refuse(file, "is not well-formed UTF-8, which paths must be");
        Step& step = addStep(words[0]);
        step.member = findMember("SaveImage");
        step.isOption = true;
        step.fileUse = FileUse::WritesPicture;
        step.file = file;
        step.arguments = {Value(std::move(*path)), Value(int(format))};
        return 2;
    }

    std::size_t parseStepFile(std::span<const Word> words) {
        if (words[0].place.file != nullptr) {
            refuse(words[0], "stands in a step file; give several -f on the command line instead");
        }
        if (words.size() < 2) {
            refuseAt(words[0].place, "-f takes the path of a step file, or - for standard input");
        }
        const Word& file = words[1];
        if (file.text == "-") claimStandardInput(file);
        const std::string problem = file.text == "-" ? "" : whyUnreadable(file.text, false);
        if (!problem.empty()) refuse(file, problem, ExitStatus::Input);
        std::string reason;
        const auto bytes = readBytes(file.text, reason);
        if (!bytes) refuse(file, reason, ExitStatus::Input);
        const std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
        for (const auto& line : splitStepFile(text, file.text == "-" ? "standard input" : file.text)) {
            parseLine(line);
        }
        lineStart_ = script_.steps.size();  // what follows -f has no step before it to belong to
        return 2;
    }

    static Value argument(const Step& step, const Word& word, const Parameter& parameter,
                          std::size_t expected, std::size_t given) {
        auto value = parseValue(word.text, parameter.type);
        if (value) return std::move(*value);
        if (opensStep(word.text)) refuseCount(step, expected, given);
        refuseArgument(step, word, parameter);
    }

    void setFile(Step& step, const Word& word) {
        if (word.text.empty()) refuse(word, "is no path of a file\n" + usageOf(step));
        step.file = word;
        if (!step.usesStandardStream()) return;
        if (step.fileUse == FileUse::ReadsBytes) claimStandardInput(word);
        script_.bytesToStandardOutput |= step.fileUse == FileUse::WritesBytes;
    }

    void claimStandardInput(const Word& word) {
        if (script_.standardInput) {
            refuse(word, "stands for standard input, which " + script_.standardInput->place.describe() +
                             " reads already; name a file instead");
        }
        script_.standardInput = word;
    }

    static ImageFormat writtenFormat(const Word& file) {
        const auto format = formatOfPath(file.text);
        if (!format) {
            refuse(file, "does not tell its format; end the name in one of " + knownExtensions());
        }
        return *format;
    }

    Step& addStep(const Word& word) {
        Step& step = script_.steps.emplace_back();
        step.word = word;
        return step;
    }

    Script script_;
    std::size_t lineStart_ = 0;  ///< the number of steps before the line being read
};

}  // namespace

Script parseScript(std::span<const Word> words) {
    ScriptParser parser;
    parser.parseLine(words);
    return parser.take();
}

}  // namespace orvane::cli
