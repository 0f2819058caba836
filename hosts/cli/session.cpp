#include "cli/session.h"

#include <optional>

#include "base/unicode.h"
#include "cli/picture_formats.h"
#include "cli/raw_files.h"
#include "cli/signal_hold.h"
#include "cli/values.h"
#include "control/dispatch.h"
#include "control/member_table.h"
#include "platform/files.h"

namespace orvane::cli {
namespace {

std::string whyNotLoaded(const std::string& path) {
    const std::string problem = whyUnreadable(path, true);
    return problem.empty()
               ? "is damaged, smaller than 2 x 2 or too large, or no picture at all (BMP, JPEG, PNG, "
                 "GIF, TIFF and WebP are read)"
               : problem;
}

}  // namespace

Session::Session(Printer& output) : printer(output), control(&window, &clipboard) {
    control.onSize(window.size().width, window.size().height);
    control.sinks.connect(*this);
}

ExitStatus Session::run(std::span<const Step> steps) {
    ExitStatus status = ExitStatus::Done;
    for (const Step& step : steps) {
        const ExitStatus outcome = runStep(step);
        status = worse(status, outcome);
        if (!printer.flush()) return ExitStatus::Output;
        if (outcome == ExitStatus::Input) break;
    }
    return status;
}

ExitStatus Session::runStep(const Step& step) {
    if (step.windowStep != nullptr) return step.windowStep->run(*this, step);
    switch (step.kind) {
        case InvokeKind::Method:
            return call(step);
        case InvokeKind::Get:
            return get(step);
        case InvokeKind::Put:
            return put(step);
    }
    return ExitStatus::Done;
}

ExitStatus Session::call(const Step& step) {
    std::vector<Value> arguments = step.arguments;
    std::vector<std::uint8_t> bytes;
    if (step.fileUse == FileUse::ReadsBytes) {
        std::string reason;
        auto read = readBytes(step.file.text, reason);
        if (!read) return fail(step.file, ExitStatus::Input, reason + "; the steps after it did not run");
        bytes = std::move(*read);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            if (step.member->parameters[i].type == ValueType::ByteArray)
                arguments[i] = Value::ByteSpan(bytes);
        }
    }
    Value result;
    {
        std::optional<SignalHold> wholeFile;
        if (std::string_view(step.member->name) == "SaveImage") wholeFile.emplace();
        (void)invoke(control, *step.member, step.kind, arguments, &result);
    }
    return report(step, result, bytes.size());
}

ExitStatus Session::report(const Step& step, Value& result, std::size_t bytesRead) {
    const std::string name = step.member->name;
    if (step.member->type == ValueType::None) return ExitStatus::Done;
    if (step.fileUse == FileUse::WritesBytes && !result.isNone()) {
        if (step.file.text != "-") return writeFile(step.file, result.bytes());
        printer.bytes(result.bytes());
        return ExitStatus::Done;
    }
    printer.line(name + ": " + printedValue(result));
    if (step.member->type != ValueType::Boolean || result.boolean()) return ExitStatus::Done;
    return reportFalse(step, bytesRead);
}

ExitStatus Session::reportFalse(const Step& step, std::size_t bytesRead) {
    constexpr ExitStatus kFalse = ExitStatus::AnsweredFalse;
    const std::string_view name = step.member->name;
    if (step.fileUse == FileUse::ReadsPicture) return fail(step.file, kFalse, whyNotLoaded(step.file.text));
    if (step.fileUse == FileUse::ReadsBytes) {
        return fail(step.file, kFalse,
                    "was not taken over: it holds " + std::to_string(bytesRead) +
                        " bytes, and an array needs sides of at least 2 pixels and Width x Height x 4 bytes");
    }
    if (name == "SaveImage") {
        const std::string path = utf8FromUtf16(step.arguments[0].string()).value_or(std::string());
        const Word file = step.isOption ? step.file : Word{path, step.word.place};
        const bool outputFailed = step.isOption && !control.document.isEmpty();
        return fail(file, outputFailed ? ExitStatus::Output : kFalse,
                    whyNotSaved(path, step.arguments[1].number()));
    }
    return kFalse;
}

ExitStatus Session::get(const Step& step) {
    Value value;
    (void)invoke(control, *step.member, InvokeKind::Get, {}, &value);
    printer.line(std::string(step.member->name) + ": " + printedValue(value));
    return ExitStatus::Done;
}

ExitStatus Session::put(const Step& step) {
    const Member& member = *step.member;
    const Value& value = step.arguments[0];
    (void)invoke(control, member, InvokeKind::Put, step.arguments, nullptr);
    const bool ranged = value.type() == ValueType::Long || value.type() == ValueType::Byte;
    const int number = value.type() == ValueType::Byte ? value.byte() : value.number();
    const bool inRange = member.rule.minimum <= number && number <= member.rule.maximum;
    if (ranged && !inRange && member.rule.outOfRange == OutOfRange::Ignore) {
        fail(step.word, ExitStatus::Done,
             std::string("is ignored: ") + member.name + " takes " + member.range);
    }
    return ExitStatus::Done;
}

ExitStatus Session::load(const std::string& path) {
    const Member& member = *findMember("LoadImage");
    const auto path16 = utf16FromUtf8(path);
    Value result(false);
    if (path16) {
        const Value argument(*path16);
        (void)invoke(control, member, InvokeKind::Method, {&argument, 1}, &result);
    }
    if (result.boolean()) return ExitStatus::Done;
    printer.complain(path16 ? whyNotLoaded(path) : "the name is not well-formed UTF-8, which paths must be");
    return ExitStatus::Input;
}

ExitStatus Session::save(const std::string& path, int format) {
    const Value arguments[] = {Value(utf16FromUtf8(path).value_or(std::u16string())), Value(format)};
    Value result(false);
    const SignalHold wholeFile;
    (void)invoke(control, *findMember("SaveImage"), InvokeKind::Method, arguments, &result);
    if (result.boolean()) return ExitStatus::Done;
    printer.complain(inQuotes(path) + " " + whyNotSaved(path, format));
    return ExitStatus::Output;
}

std::string Session::whyNotSaved(const std::string& path, int format) const {
    if (control.document.isEmpty()) return "is not written: there is no picture";
    if (format < int(ImageFormat::Bmp) || format > int(ImageFormat::Png)) {
        return "is not written: nType is 0 BMP, 1 JPEG, 2 GIF, 3 TIFF or 4 PNG";
    }
    const std::string problem = whyUnwritable(path);
    return problem.empty() ? "cannot be written: no room or memory, or a side too long for its format"
                           : problem;
}

ExitStatus Session::writeFile(const Word& file, std::span<const std::uint8_t> bytes) {
    const SignalHold wholeFile;
    if (!bytes.empty() && replaceFile(file.text, bytes)) return ExitStatus::Done;
    const std::string problem = whyUnwritable(file.text);
    return fail(file, ExitStatus::Output, problem.empty() ? "cannot be written" : problem);
}

ExitStatus Session::fail(const Word& word, ExitStatus status, const std::string& text) {
    printer.complain(word.place.describe() + ": " + inQuotes(word.text) + " " + text);
    return status;
}

void Session::onEvent(EventId event, std::span<const Value> arguments) {
    std::string line = std::string("event ") + eventName(event);
    for (const Value& argument : arguments) line += " " + printedValue(argument);
    printer.line(line);
}

}  // namespace orvane::cli
