#pragma once

#include <thread>
#include <vector>

#include <gtk/gtk.h>

#include <orvane/control_base.h>

namespace orvane::gtk {

/// One method of a control, running on a thread of its own.
class SlowCall {
 public:
    /// `ended` is called with the task from the main loop when the method has ended, and owns the task's
    /// reference then. The method's result is the task's data.
    SlowCall(ControlBase& control, int id, std::vector<Value> arguments, GTask* task, GSourceFunc ended);
    /// Waits for the end, and before that for the beginning if there was none.
    ~SlowCall();
    SlowCall(const SlowCall&) = delete;
    SlowCall& operator=(const SlowCall&) = delete;

    /// Starts the thread; calls after the first do nothing. Without a thread to be had the method runs here.
    void begin() noexcept;
    [[nodiscard]] bool hasBegun() const noexcept { return begun_; }
    [[nodiscard]] bool isFor(const GTask* task) const noexcept { return task == task_; }

 private:
    void work() noexcept;

    ControlBase& control_;
    int id_;
    std::vector<Value> arguments_;
    GTask* task_;
    GSourceFunc ended_;
    bool begun_ = false;
    std::thread worker_;
};

/// Ends a task with the result that is its data, and drops the reference.
void answer(GTask* task) noexcept;
/// Does so from the main loop. A task left to itself answers at once if the main loop has run since it began.
void answerSoon(GTask* task) noexcept;
/// The error domain's answer for a call that was refused, from the main loop too.
void refuse(GTask* task, GIOErrorEnum reason, const char* message) noexcept;

}  // namespace orvane::gtk
