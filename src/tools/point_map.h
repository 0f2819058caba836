#pragma once

#include <orvane/geometry.h>

#include "base/function_ref.h"

namespace orvane {

/// Takes points somewhere else: from window pixels to image pixels when a tool commits, from one zoom to
/// another when pending geometry is kept on its image pixels.
using PointMap = FunctionRef<IntPoint(IntPoint)>;

}  // namespace orvane
