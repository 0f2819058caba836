#pragma once

#include <cstddef>

namespace orvane {

/// Asks the system to back this memory with large pages, where it can: first-touch costs fall to a fraction.
/// A hint only.
void adviseHugePages(void* memory, std::size_t bytes) noexcept;

}  // namespace orvane
