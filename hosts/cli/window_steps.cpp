#include "cli/window_steps.h"

#include <cstddef>
#include <string>

#include "cli/picture_formats.h"
#include "cli/session.h"

namespace orvane::cli {
namespace {

using enum ValueType;

constexpr int kHighestSide = 32767;  // what the messages of a window can express
constexpr int kLowestPosition = -32768;
constexpr int kViewQuality = 90;

ExitStatus resize(Session& session, const Step& step) {
    const int width = step.arguments[0].number(), height = step.arguments[1].number();
    session.window.resize(width, height);
    session.control.onSize(width, height);
    return ExitStatus::Done;
}

IntPoint pointOf(const Step& step, std::size_t pair = 0) {
    return {step.arguments[2 * pair].number(), step.arguments[2 * pair + 1].number()};
}

void moveTo(Session& session, IntPoint mouse) {
    session.window.movePointer(mouse);
    session.control.onMouseMove(mouse.x, mouse.y, session.held);
}

void pressAt(Session& session, IntPoint mouse) {
    session.window.movePointer(mouse);
    session.held.left = true;
    session.control.onLeftDown(mouse.x, mouse.y);
}

void releaseAt(Session& session, IntPoint mouse) {
    session.window.movePointer(mouse);
    session.held.left = false;
    session.control.onLeftUp(mouse.x, mouse.y);
}

ExitStatus press(Session& session, const Step& step) {
    pressAt(session, pointOf(step));
    return ExitStatus::Done;
}

ExitStatus move(Session& session, const Step& step) {
    moveTo(session, pointOf(step));
    return ExitStatus::Done;
}

ExitStatus release(Session& session, const Step& step) {
    releaseAt(session, pointOf(step));
    return ExitStatus::Done;
}

ExitStatus pressRight(Session& session, const Step& step) {
    const IntPoint mouse = pointOf(step);
    session.window.movePointer(mouse);
    session.held.right = true;
    session.control.onRightDown(mouse.x, mouse.y);
    return ExitStatus::Done;
}

// The control reacts to no right button going up; moves that follow are moves without it.
ExitStatus releaseRight(Session& session, const Step& step) {
    session.window.movePointer(pointOf(step));
    session.held.right = false;
    return ExitStatus::Done;
}

ExitStatus drag(Session& session, const Step& step) {
    const std::size_t last = step.arguments.size() / 2 - 1;
    pressAt(session, pointOf(step));
    for (std::size_t pair = 1; pair <= last; ++pair) moveTo(session, pointOf(step, pair));
    releaseAt(session, pointOf(step, last));
    return ExitStatus::Done;
}

ExitStatus tick(Session& session, const Step& step) {
    const int count = step.arguments.empty() ? 1 : step.arguments[0].number();
    for (int i = 0; i < count && session.window.isTimerRunning(); ++i) session.control.onTimer();
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

constexpr Parameter kMouseX{"X", Long, "window pixels from the left, -32768 to 32767"};
constexpr Parameter kMouseY{"Y", Long, "window pixels from the top, -32768 to 32767"};

constexpr WindowStep mouseStep(const char* name, const char* help, ExitStatus (*run)(Session&, const Step&)) {
    return {.name = name,
            .help = help,
            .parameters = {kMouseX, kMouseY},
            .lowest = kLowestPosition,
            .highest = kHighestSide,
            .run = run};
}

constexpr WindowStep kSteps[] = {
    {.name = "@size",
     .help = "Resizes the window, which starts at 640 x 480; nothing is redrawn by this alone.",
     .parameters = {{"W", Long, "width in pixels, 0 to 32767"}, {"H", Long, "height in pixels, 0 to 32767"}},
     .highest = kHighestSide,
     .run = resize},
    mouseStep("@press", "Presses the left button.", press),
    mouseStep("@move", "Moves the mouse; the buttons that are held stay held.", move),
    mouseStep("@release", "Releases the left button.", release),
    mouseStep("@rightpress", "Presses the right button.", pressRight),
    mouseStep("@rightrelease", "Releases the right button.", releaseRight),
    {.name = "@drag",
     .help =
         "Presses the left button at the first point, moves to each of the others, and releases it at the "
         "last.",
     .parameters = {kMouseX, kMouseY},
     .lowest = kLowestPosition,
     .highest = kHighestSide,
     .parameterUse = ParameterUse::PairsToEnd,
     .run = drag},
    {.name = "@tick",
     .help = "Lets the animation timer tick, while it runs; it does in spray and selection.",
     .parameters = {{"N", Long, "how often, 1 to 1000000; once when left out"}},
     .lowest = 1,
     .highest = 1000000,
     .parameterUse = ParameterUse::LastOptional,
     .run = tick},
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
