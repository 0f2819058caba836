#pragma once

#include <string>

namespace orvane::cli {

/// What `orvane --help` prints.
[[nodiscard]] std::string helpPage();

}  // namespace orvane::cli
