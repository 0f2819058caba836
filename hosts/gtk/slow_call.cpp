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
    : control_(control), id_(id), arguments_(std::move(arguments)), task_(task), ended_(ended) {}

SlowCall::~SlowCall() {
    begin();
    if (worker_.joinable()) worker_.join();
}

void SlowCall::begin() noexcept {
    if (begun_) return;
    begun_ = true;
    try {
        worker_ = std::thread([this] { work(); });
    } catch (...) {
        work();
    }
}

void SlowCall::work() noexcept {
    Value result;
    control_.invoke(id_, InvokeKind::Method, arguments_, &result);
    keepResult(task_, result);
    callInMainLoop(task_, ended_);
}

void answer(GTask* task) noexcept {
    auto* result = static_cast<GVariant*>(g_task_get_task_data(task));
    g_task_return_pointer(task, result != nullptr ? g_variant_ref(result) : nullptr, dropVariant);
    g_object_unref(task);
}

void answerSoon(GTask* task) noexcept {
    callInMainLoop(task, [](gpointer answered) -> gboolean {
        answer(static_cast<GTask*>(answered));
        return G_SOURCE_REMOVE;
    });
}

void refuse(GTask* task, GIOErrorEnum reason, const char* message) noexcept {
    const auto dropError = [](gpointer error) { g_error_free(static_cast<GError*>(error)); };
    g_task_set_task_data(task, g_error_new_literal(G_IO_ERROR, int(reason), message), dropError);
    callInMainLoop(task, [](gpointer data) -> gboolean {
        auto* refused = static_cast<GTask*>(data);
        g_task_return_error(refused, g_error_copy(static_cast<GError*>(g_task_get_task_data(refused))));
        g_object_unref(refused);
        return G_SOURCE_REMOVE;
    });
}

}  // namespace orvane::gtk
