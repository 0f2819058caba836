#include "cli/child_process.h"

#include <cstring>
#include <new>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvane::cli {
namespace {

[[noreturn]] void runAsChild(const std::function<ExitStatus()>& work, const sigset_t& mask, pid_t parent) {
    // A parent that is killed cannot end its children, so the system does.
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    sigprocmask(SIG_SETMASK, &mask, nullptr);
    if (::getppid() != parent) ::_exit(int(ExitStatus::Output));
    ExitStatus status = ExitStatus::Output;
    try {
        status = work();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "orvane: %s\n", failure.what());
    }
    std::fflush(stdout);
    ::_exit(int(status));
}

}  // namespace

bool ChildProcess::start(const std::function<ExitStatus()>& work, const sigset_t& mask) {
    output_.reset(std::tmpfile());
    complaints_.reset(std::tmpfile());
    if (output_ == nullptr || complaints_ == nullptr) return false;
    const pid_t parent = ::getpid();
    std::fflush(stdout);  // or both processes would print what is waiting
    id_ = ::fork();
    if (id_ != 0) return id_ > 0;
    ::dup2(::fileno(output_.get()), STDOUT_FILENO);
    ::dup2(::fileno(complaints_.get()), STDERR_FILENO);
    runAsChild(work, mask, parent);
}

void ChildProcess::terminate() const { ::kill(id_, SIGTERM); }

ChildProcess::Outcome ChildProcess::outcome(int waitStatus) {
    Outcome result;
    result.output = contents(output_);
    result.complaints = contents(complaints_);
    if (WIFSIGNALED(waitStatus)) {
        const int signal = WTERMSIG(waitStatus);
        result.ending = "ended by signal " + std::to_string(signal) + " (" + ::strsignal(signal) + ")";
        result.status = ExitStatus::Input;
    } else {
        const int code = WEXITSTATUS(waitStatus);
        result.status = code <= int(ExitStatus::Output) ? ExitStatus(code) : ExitStatus::Input;
        if (code > int(ExitStatus::Output)) result.ending = "ended with status " + std::to_string(code);
    }
    return result;
}

std::string ChildProcess::contents(File& file) {
    std::string text;
    std::rewind(file.get());
    char buffer[1 << 14];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get()))
        text.append(buffer, count);
    file.reset();
    return text;
}

}  // namespace orvane::cli
