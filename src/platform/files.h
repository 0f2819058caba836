#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// Whole files in and out. Paths are UTF-8. Nothing throws; a failure is an empty result.
namespace orvane {

/// Whether the path names a regular file that can be opened for reading. Paths of fewer than 3 UTF-16 code
/// units count as absent; callers test that.
[[nodiscard]] bool isReadableFile(std::string_view path) noexcept;

/// The contents of a regular file; nothing for a missing or unreadable one, for one of more than
/// 2^31 - 1 bytes, and for pipes, devices and directories, which a picture is never read from.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> readWholeFile(std::string_view path) noexcept;

/// Writes beside the target, then renames over it, so that at every moment the target is either the old file
/// or the whole new one. A symbolic link is followed and its target replaced; an existing file's permissions
/// are kept. On failure the target is as before and no temporary file is left.
[[nodiscard]] bool replaceFile(std::string_view path, std::span<const std::uint8_t> bytes) noexcept;

}  // namespace orvane
