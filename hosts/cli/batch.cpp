#include "cli/batch.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <map>
#include <optional>

#include <sys/wait.h>
#include <unistd.h>

#include "cli/child_process.h"
#include "cli/progress_bar.h"
#include "cli/refusal.h"
#include "cli/session.h"

namespace orvane::cli {
namespace {

/// The whole work on one file.
ExitStatus editFile(const BatchItem& item, const Script& script) {
    Printer printer(item.input.text);
    Session session(printer);
    ExitStatus status = session.load(item.input.text);
    if (status == ExitStatus::Done) {
        status = session.run(script.steps);
        if (status == ExitStatus::AnsweredFalse) printer.complain("a member answered false");
        // A step that could not read its input left a picture that nobody asked for.
        if (status < ExitStatus::Input) status = worse(status, session.save(item.output, item.format));
    }
    return worse(status, printer.finish());
}

/// The signals that a batch waits for: blocked, so that none gets lost between two looks.
class SignalQueue {
 public:
    SignalQueue() {
        std::signal(SIGCHLD, SIG_DFL);  // an ignored one would take the children's results along
        sigemptyset(&awaited_);
        sigaddset(&awaited_, SIGCHLD);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            struct sigaction action {};
            const bool ignored = sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
            if (!ignored) sigaddset(&awaited_, signal);
        }
        sigprocmask(SIG_BLOCK, &awaited_, &before_);
    }
    ~SignalQueue() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    SignalQueue(const SignalQueue&) = delete;
    SignalQueue& operator=(const SignalQueue&) = delete;

    [[nodiscard]] int wait() const {
        int signal = -1;
        while (signal < 0) signal = sigwaitinfo(&awaited_, nullptr);
        return signal;
    }
    [[nodiscard]] const sigset_t& maskBefore() const { return before_; }

 private:
    sigset_t awaited_, before_;
};

class Batch {
 public:
    Batch(const BatchPlan& plan, Printer& printer)
        : plan_(plan), printer_(printer), bar_(int(plan.items.size())), outcomes_(plan.items.size()) {}

    ExitStatus run() {
        bar_.show(0, 0);
        while (started_ < plan_.items.size() || !running_.empty()) {
            startMore();
            if (running_.empty()) continue;  // the system had no room for the last one: it has failed
            const int signal = signals_.wait();
            if (signal != SIGCHLD) endBy(signal);
            collectEnded();
        }
        bar_.hide();
        const std::size_t done = plan_.items.size() - failed_;
        printer_.line(std::to_string(done) + " done, " + std::to_string(failed_) + " failed");
        return status_;
    }

 private:
    void startMore() {
        while (started_ < plan_.items.size() && running_.size() < std::size_t(plan_.jobs)) {
            const BatchItem& item = plan_.items[started_];
            ChildProcess child;
            if (!child.start([&] { return editFile(item, plan_.script); }, signals_.maskBefore())) {
                if (!running_.empty()) return;  // there is room again when one of them has ended
                conclude(started_++, {ExitStatus::Output, {}, {}, "not begun: no room for another process"});
                continue;
            }
            const pid_t id = child.id();
            running_.emplace(id, std::pair(started_++, std::move(child)));
        }
    }

    void collectEnded() {
        int waitStatus = 0;
        for (pid_t id; (id = ::waitpid(-1, &waitStatus, WNOHANG)) > 0;) {
            const auto found = running_.find(id);
            if (found == running_.end()) continue;
            auto [index, child] = std::move(found->second);
            running_.erase(found);
            conclude(index, child.outcome(waitStatus));
        }
    }

    void conclude(std::size_t index, ChildProcess::Outcome outcome) {
        ++concluded_;
        if (outcome.status != ExitStatus::Done) ++failed_;
        status_ = worse(status_, outcome.status);
        outcomes_[index] = std::move(outcome);
        while (printed_ < outcomes_.size() && outcomes_[printed_]) printOutcome(printed_++);
        bar_.show(int(concluded_), int(failed_));
    }

    void printOutcome(std::size_t index) {
        const ChildProcess::Outcome& outcome = *outcomes_[index];
        const std::string& name = plan_.items[index].input.text;
        if (!outcome.output.empty() || !outcome.complaints.empty() || !outcome.ending.empty()) bar_.hide();
        printer_.text(outcome.output);
        printer_.flush();
        std::fputs(outcome.complaints.c_str(), stderr);
        if (!outcome.ending.empty()) printer_.complain(name + ": its process " + outcome.ending);
        outcomes_[index] = ChildProcess::Outcome();
    }

    /// Ends the children, each after the file that it may be writing, and then this process as asked.
    [[noreturn]] void endBy(int signal) {
        for (const auto& [id, entry] : running_) entry.second.terminate();
        for (const auto& [id, entry] : running_) {
            while (::waitpid(id, nullptr, 0) < 0 && errno == EINTR) {
            }
        }
        bar_.hide();
        printer_.complain("stopped: " + std::to_string(concluded_) + " of " +
                          std::to_string(plan_.items.size()) + " files were worked on");
        std::signal(signal, SIG_DFL);
        std::raise(signal);
        sigset_t only;
        sigemptyset(&only);
        sigaddset(&only, signal);
        sigprocmask(SIG_UNBLOCK, &only, nullptr);
        ::_exit(128 + signal);
    }

    const BatchPlan& plan_;
    Printer& printer_;
    SignalQueue signals_;
    ProgressBar bar_;
    std::map<pid_t, std::pair<std::size_t, ChildProcess>> running_;
    std::vector<std::optional<ChildProcess::Outcome>> outcomes_;  ///< by item, until printed
    std::size_t started_ = 0, concluded_ = 0, printed_ = 0, failed_ = 0;
    ExitStatus status_ = ExitStatus::Done;
};

}  // namespace

ExitStatus runBatch(const BatchPlan& plan, Printer& printer) {
    std::error_code error;
    std::filesystem::create_directories(plan.folder, error);
    if (!std::filesystem::is_directory(plan.folder)) {
        throw Refusal("batch: the folder " + inQuotes(plan.folder) + " cannot be created" +
                          (error ? ": " + error.message() : ""),
                      ExitStatus::Output);
    }
    return Batch(plan, printer).run();
}

}  // namespace orvane::cli
