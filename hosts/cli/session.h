#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <orvane/event_sink.h>
#include <orvane/headless_clipboard.h>
#include <orvane/headless_window.h>

#include "cli/exit_status.h"
#include "cli/printer.h"
#include "cli/step.h"
#include "control/vistrel_control.h"

namespace orvane::cli {

/// One control in one window in memory, and the steps that drive it. Events are printed as they fire.
class Session final : private EventSink {
 public:
    explicit Session(Printer& output);

    /// Runs the steps from left to right. A step that cannot read its input, or a standard output that takes
    /// nothing more, ends the run; anything else is noted in the status and the remaining steps run.
    ExitStatus run(std::span<const Step> steps);

    /// The picture of a batch, in and out: prints nothing, complains with the reason.
    ExitStatus load(const std::string& path);
    ExitStatus save(const std::string& path, int format);

    /// Writes a whole file or complains; nothing encoded counts as a failure.
    ExitStatus writeFile(const Word& file, std::span<const std::uint8_t> bytes);
    /// Complains about the word and gives the status back.
    ExitStatus fail(const Word& word, ExitStatus status, const std::string& text);

    Printer& printer;
    HeadlessWindow window;
    HeadlessClipboard clipboard;
    VistrelControl control;
    MouseButtons held;  ///< by the mouse steps so far

 private:
    void onEvent(EventId event, std::span<const Value> arguments) override;

    ExitStatus runStep(const Step& step);
    ExitStatus call(const Step& step);
    ExitStatus get(const Step& step);
    ExitStatus put(const Step& step);
    ExitStatus report(const Step& step, Value& result, std::size_t bytesRead);
    ExitStatus reportFalse(const Step& step, std::size_t bytesRead);
    [[nodiscard]] std::string whyNotSaved(const std::string& path, int format) const;
};

}  // namespace orvane::cli
