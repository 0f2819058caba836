#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include <sys/types.h>
#include <csignal>

#include "cli/exit_status.h"

namespace orvane::cli {

/// A copy of this process that does one piece of work. What it says is kept until it has ended.
class ChildProcess {
 public:
    /// Starts the work, in a process with this signal mask; its result becomes the exit status. False when
    /// the system has no room for another process.
    [[nodiscard]] bool start(const std::function<ExitStatus()>& work, const sigset_t& mask);

    [[nodiscard]] pid_t id() const { return id_; }
    void terminate() const;

    /// Once the process has ended, with this wait status: its result and what it said. A process that was
    /// brought down counts as failed input, since that is what differs between it and its siblings.
    struct Outcome {
        ExitStatus status = ExitStatus::Done;
        std::string output, complaints;
        std::string ending;  ///< "ended by signal 11 (Segmentation fault)"; empty when it ended by itself
    };
    [[nodiscard]] Outcome outcome(int waitStatus);

 private:
    struct CloseFile {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    using File = std::unique_ptr<std::FILE, CloseFile>;
    static std::string contents(File& file);

    pid_t id_ = -1;
    File output_, complaints_;
};

}  // namespace orvane::cli
