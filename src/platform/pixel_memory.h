#pragma once

#include <cstddef>

namespace orvane {

/// Memory for one picture, from a pool shared by the whole process: a buffer that was given back is handed
/// out again for the same size, because touching fresh memory costs more than most filters. Aligned to at
/// least 64 bytes; contents undefined. Null when memory ran out. Safe to call from any thread.
[[nodiscard]] void* allocatePixelMemory(std::size_t bytes) noexcept;

/// Gives the memory back; `bytes` is the size that was asked for. Null is ignored.
void freePixelMemory(void* memory, std::size_t bytes) noexcept;

/// Frees everything that the pool keeps for later use.
void trimPixelMemory() noexcept;

}  // namespace orvane
