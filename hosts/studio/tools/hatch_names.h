#pragma once

#include <span>

namespace orvane::studio {

/// The hatch patterns' names; a pattern's place is its brush-hatch-style.
[[nodiscard]] std::span<const char* const> hatchNames();

}  // namespace orvane::studio
