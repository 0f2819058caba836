// The command line program: finds out what is asked for and answers with the exit status.
#include <csignal>
#include <cstdio>
#include <new>
#include <span>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "cli/batch.h"
#include "cli/batch_plan.h"
#include "cli/file_checks.h"
#include "cli/help_page.h"
#include "cli/member_help.h"
#include "cli/printer.h"
#include "cli/refusal.h"
#include "cli/script_parser.h"
#include "cli/session.h"

namespace orvane::cli {
namespace {

/// A picture file must never take the number of a closed standard stream, or lines would be printed into it.
/// The stand-ins are opened the wrong way round, so that using them fails as on a closed stream.
void occupyStandardStreams() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) >= 0) continue;
        (void)!::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

ExitStatus runSteps(std::span<const Word> words, Printer& printer) {
    const Script script = parseScript(words);
    checkFiles(script);
    if (script.bytesToStandardOutput) printer.keepOutputForBytes();
    return Session(printer).run(script.steps);
}

ExitStatus answer(std::span<const Word> words, Printer& printer) {
    const std::string_view first = words.empty() ? std::string_view("--help") : words[0].text;
    const bool isHelp = first == "help" || first == "--help" || first == "-h";
    if (first == "batch") return runBatch(planBatch(words.subspan(1)), printer);
    if (first == "help" && words.size() == 2) {
        printer.text(helpOn(words[1]));
    } else if (isHelp || first == "--version" || first == "members") {
        if (words.size() > 1) refuse(words[1], "is one argument too many for " + words[0].text);
        printer.text(isHelp               ? helpPage()
                     : first == "members" ? membersPage()
                                          : "orvane " ORVANE_VERSION "\n");
    } else {
        return runSteps(words, printer);
    }
    return ExitStatus::Done;
}

ExitStatus runProgram(std::span<char* const> arguments) {
    Printer printer;
    ExitStatus status = ExitStatus::Done;
    try {
        status = answer(commandLineWords(arguments, 1), printer);
    } catch (const Refusal& refusal) {
        printer.complain(refusal.what());
        status = refusal.status();
    }
    return worse(status, printer.finish());
}

}  // namespace
}  // namespace orvane::cli

int main(int argc, char** argv) {
    // A reader that went away and a file beyond the size limit are failed writes like any other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    orvane::cli::occupyStandardStreams();
    try {
        return int(orvane::cli::runProgram({argv, std::size_t(argc)}));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "orvane: %s\n", failure.what());
        return int(orvane::cli::ExitStatus::Output);
    }
}
