// Calling a method by its name without blocking the main loop.
#include <algorithm>
#include <optional>
#include <string>

#include "gtk/member_calls.h"
#include "gtk/member_rows.h"
#include "gtk/slow_call.h"

namespace orvane::gtk {
namespace {

/// The method of that name, whether its words are joined by hyphens or underscores.
const MethodRow* findMethod(const char* name) {
    std::string wanted(name);
    std::replace(wanted.begin(), wanted.end(), '_', '-');
    for (const MethodRow& row : methodRows()) {
        if (wanted == row.name) return &row;
    }
    return nullptr;
}

/// The clipboard belongs to the main thread.
bool needsMainThread(const MethodRow& method) {
    const std::string_view name = method.name;
    return name == "copy" || name == "cut" || name == "paste";
}

std::optional<std::vector<Value>> argumentsOf(const MethodRow& method, GVariant* tuple) {
    const bool given = tuple != nullptr && g_variant_is_of_type(tuple, G_VARIANT_TYPE_TUPLE);
    const gsize count = given ? g_variant_n_children(tuple) : 0;
    if (count != gsize(method.parameterCount)) return std::nullopt;
    std::vector<Value> arguments;
    for (gsize i = 0; i < count; ++i) {
        GVariant* child = g_variant_get_child_value(tuple, i);
        auto value = fromVariant(child, method.parameters[i]);
        g_variant_unref(child);
        if (!value) return std::nullopt;
        arguments.push_back(std::move(*value));
    }
    return arguments;
}

void callAtOnce(OrvaneVistrel* self, int id, GTask* task) {
    callMember(self, id, {});
    answerSoon(task);
}

/// Takes over the reference to the task.
void start(OrvaneVistrel* self, const char* name, GVariant* tuple, GTask* task) noexcept try {
    const MethodRow* method = findMethod(name);
    if (method == nullptr) return refuse(task, G_IO_ERROR_NOT_FOUND, "There is no such method");
    auto arguments = argumentsOf(*method, tuple);
    if (!arguments) return refuse(task, G_IO_ERROR_INVALID_ARGUMENT, "The method has other parameters");
    if (needsMainThread(*method) && !isOccupied(self)) return callAtOnce(self, method->id, task);
    if (needsMainThread(*method) || !startMember(self, method->id, std::move(*arguments), task)) {
        refuse(task, G_IO_ERROR_PENDING, "Another method is running");
    }
} catch (...) {
    refuse(task, G_IO_ERROR_FAILED, "There is no memory");
}

}  // namespace
}  // namespace orvane::gtk

void orvane_vistrel_invoke_async(OrvaneVistrel* self, const char* member, GVariant* arguments,
                                 GCancellable* cancellable, GAsyncReadyCallback callback,
                                 gpointer user_data) {
    g_return_if_fail(ORVANE_IS_VISTREL(self));
    g_return_if_fail(member != nullptr);
    GVariant* tuple = arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr;
    GTask* task = g_task_new(self, cancellable, callback, user_data);
    if (g_task_return_error_if_cancelled(task)) {
        g_object_unref(task);
    } else {
        g_task_set_check_cancellable(task, FALSE);  // what has run is not told as cancelled
        orvane::gtk::start(self, member, tuple, task);
    }
    if (tuple != nullptr) g_variant_unref(tuple);
}

GVariant* orvane_vistrel_invoke_finish(OrvaneVistrel* self, GAsyncResult* result, GError** error) {
    g_return_val_if_fail(ORVANE_IS_VISTREL(self), nullptr);
    g_return_val_if_fail(g_task_is_valid(result, self), nullptr);
    return static_cast<GVariant*>(g_task_propagate_pointer(G_TASK(result), error));
}
