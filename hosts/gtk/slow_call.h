#pragma once

#include <thread>
#include <vector>

#include <gtk/gtk.h>

#include <orvane/control_base.h>

namespace orvane::gtk {

/// One method of a control, running on a thread of its own.
class SlowCall {
 public:
    /// Starts; throws when there is no thread to be had. `ended` is called with the task from the main loop
    /// when the method has ended, and owns the task's reference then. The method's result is the task's data.
    SlowCall(ControlBase& control, int id, std::vector<Value> arguments, GTask* task, GSourceFunc ended);
    /// Waits for the end.
    ~SlowCall();
    SlowCall(const SlowCall&) = delete;
    SlowCall& operator=(const SlowCall&) = delete;

    [[nodiscard]] bool isFor(const GTask* task) const noexcept { return task == task_; }

 private:
    const GTask* task_;
    std::thread worker_;
};

/// The error domain's answer for a call that was refused, as a task.
void refuse(GTask* task, GIOErrorEnum reason, const char* message) noexcept;

}  // namespace orvane::gtk
