#include "cli/window_steps.h"

#include <string>

#include "cli/picture_formats.h"
#include "cli/session.h"

namespace orvane::cli {
namespace {

using enum ValueType;

constexpr int kHighestSide = 32767;  // what the messages of a window can express
constexpr int kViewQuality = 90;

ExitStatus resize(Session& session, const Step& step) {
    const int width = step.arguments[0].number(), height = step.arguments[1].number();
    session.window.resize(width, height);
    session.control.onSize(width, height);
    return ExitStatus::Done;
}

ExitStatus dropFile(Session& session, const Step& step) {
    session.control.onDropFile(step.arguments[0].string());
    return ExitStatus::Done;
}

ExitStatus writeView(Session& session, const Step& step) {
    const PixelView picture = session.window.picture();
    if (!picture) {
        return session.fail(step.file, ExitStatus::Output,
                            "is not written: the window has shown nothing yet; a step that redraws, such as "
                            "ZoomToFit or EndUpdate, comes first");
    }
    const ImageFormat format = formatOfPath(step.file.text).value_or(ImageFormat::Png);
    return session.writeFile(step.file, encodeImage(picture, format, kViewQuality));
}

ExitStatus printState(Session& session, const Step&) {
    const auto truth = [](bool value) { return std::string(value ? "true" : "false"); };
    session.printer.line("cursor: " + std::to_string(int(session.window.cursor())));
    session.printer.line("captured: " + truth(session.window.isCaptured()));
    session.printer.line("timer: " + truth(session.window.isTimerRunning()));
    session.printer.line("presents: " + std::to_string(session.window.presents()));
    return ExitStatus::Done;
}

constexpr WindowStep kSteps[] = {
    {.name = "@size",
     .help = "Resizes the window, which starts at 640 x 480; nothing is redrawn by this alone.",
     .parameters = {{"W", Long, "width in pixels, 0 to 32767"}, {"H", Long, "height in pixels, 0 to 32767"}},
     .highest = kHighestSide,
     .run = resize},
    {.name = "@drop",
     .help = "Drops a file on the window.",
     .parameters = {{"PATH", String, "path of the file, which need not exist"}},
     .run = dropFile},
    {.name = "@view",
     .help = "Writes what the window showed last as a picture.",
     .parameters = {{"FILE", String, "path of the picture; the format follows from its extension"}},
     .fileUse = FileUse::WritesPicture,
     .run = writeView},
    {.name = "@state",
     .help = "Prints cursor, captured, timer and presents (the redraws so far), one per line.",
     .run = printState},
};

}  // namespace

std::span<const WindowStep> windowSteps() noexcept { return kSteps; }

const WindowStep* findWindowStep(std::string_view name) noexcept {
    for (const WindowStep& step : kSteps) {
        if (name == step.name) return &step;
    }
    return nullptr;
}

}  // namespace orvane::cli
