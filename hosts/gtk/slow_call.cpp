#include "gtk/slow_call.h"

#include <memory>

#include "gtk/values.h"

namespace orvane::gtk {
namespace {

void dropVariant(gpointer variant) { g_variant_unref(static_cast<GVariant*>(variant)); }

/// Has the main loop call the function, and not this thread, as g_main_context_invoke() may.
void callInMainLoop(GTask* task, GSourceFunc function) {
    GSource* source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, function, task, nullptr);
    g_source_attach(source, g_task_get_context(task));
    g_source_unref(source);
}

/// Leaves the result where g_task_get_task_data finds it.
void keepResult(GTask* task, const Value& result) {
    if (GVariant* variant = toVariant(result))
        g_task_set_task_data(task, g_variant_ref_sink(variant), dropVariant);
}

}  // namespace

SlowCall::SlowCall(ControlBase& control, int id, std::vector<Value> arguments, GTask* task, GSourceFunc ended)
    : task_(task), worker_([&control, id, arguments = std::move(arguments), task, ended] {
          Value result;
          control.invoke(id, InvokeKind::Method, arguments, &result);
          keepResult(task, result);
          callInMainLoop(task, ended);
      }) {}

SlowCall::~SlowCall() { worker_.join(); }

void refuse(GTask* task, GIOErrorEnum reason, const char* message) noexcept {
    g_task_return_new_error(task, G_IO_ERROR, reason, "%s", message);
    g_object_unref(task);
}

}  // namespace orvane::gtk
