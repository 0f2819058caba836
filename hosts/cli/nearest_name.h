#pragma once

#include <span>
#include <string_view>

namespace orvane::cli {

/// The name that was probably meant: the closest one by letters added, dropped, changed or swapped, whatever
/// their case. Empty when none is close.
[[nodiscard]] std::string_view nearestName(std::string_view text, std::span<const std::string_view> names);

/// The same among the members of the control and the steps that start with @.
[[nodiscard]] std::string_view nearestStepName(std::string_view text);

}  // namespace orvane::cli
