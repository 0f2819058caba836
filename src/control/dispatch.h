#pragma once

#include <orvane/dispatch_types.h>

#include "control/member.h"
#include "control/vistrel_control.h"

namespace orvane {

/// Calls, gets or puts a member of the control. Arguments are converted where no information is lost (a whole
/// number for a Double, a number for a Boolean or a Color, None for a null string or array); otherwise the
/// call is refused before anything happens. A member itself never fails: what it could not do shows in its
/// result or as unchanged state. `result` may be null. Running out of memory drops the command; the document
/// is then in one of the states before or after it.
DispatchResult invoke(VistrelControl& control, const Member& member, InvokeKind kind, Arguments arguments,
                      Value* result) noexcept;
DispatchResult invoke(VistrelControl& control, int id, InvokeKind kind, Arguments arguments,
                      Value* result) noexcept;

}  // namespace orvane
