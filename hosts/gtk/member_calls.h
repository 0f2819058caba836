#pragma once

#include <initializer_list>
#include <vector>

#include "gtk/orvane-gtk.h"
#include "gtk/values.h"

/// What the functions made from the member table are written in.
namespace orvane::gtk {

Value callMember(OrvaneVistrel* self, int id, std::initializer_list<Value> arguments) noexcept;
Value getMember(OrvaneVistrel* self, int id) noexcept;
void putMember(OrvaneVistrel* self, int id, const Value& value) noexcept;
/// Whether a slow method runs or waits for another program's clipboard.
bool isOccupied(OrvaneVistrel* self) noexcept;
/// Starts a method on a worker, with a reference to the task; false while another one runs.
bool startMember(OrvaneVistrel* self, int id, std::vector<Value> arguments, GTask* task) noexcept;

}  // namespace orvane::gtk
