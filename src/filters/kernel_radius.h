#pragma once

namespace orvane {

/// The largest radius of filters that are defined by a square of weights: larger squares, of four bytes per
/// weight, exceed what one picture may occupy. Such a filter ends as if memory had run out.
constexpr int kMaxKernelRadius = 11584;

}  // namespace orvane
