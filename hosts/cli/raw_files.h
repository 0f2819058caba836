#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvane::cli {

/// All bytes of a file, pipe or, for "-", of standard input. Nothing when it cannot be read or exceeds the
/// largest array (2^31 - 1 bytes); `reason` then says why.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> readBytes(const std::string& path,
                                                                 std::string& reason);

/// Why a file cannot be read, "" when it can. A picture must be a regular file.
[[nodiscard]] std::string whyUnreadable(const std::string& path, bool isPicture);

/// Why no file can be written there, as far as can be seen beforehand; "" when nothing speaks against it.
[[nodiscard]] std::string whyUnwritable(const std::string& path);

/// One name for a file, however it was written, also for one that does not exist yet.
[[nodiscard]] std::string canonicalPath(const std::string& path);

}  // namespace orvane::cli
