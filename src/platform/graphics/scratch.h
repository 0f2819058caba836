#pragma once

#include <cstddef>
#include <vector>

/// Memory for what lives only while one shape is drawn.
///
/// Blocks given back stay with the thread for the next shape, eight at most and none of more than a megabyte:
/// memory fresh from the system would have to be cleared each time, which costs more than the shape.
namespace orvane {

/// At least so many bytes. Throws std::bad_alloc.
[[nodiscard]] void* takeScratch(std::size_t bytes);
/// What takeScratch has given for the same number of bytes.
void giveScratchBack(void* memory, std::size_t bytes) noexcept;

template <class T>
struct ScratchAllocator {
    using value_type = T;

    ScratchAllocator() = default;
    template <class Other>
    explicit ScratchAllocator(const ScratchAllocator<Other>& /*other*/) noexcept {}

    // NOLINTBEGIN(bugprone-sizeof-expression): elements may be pointers
    [[nodiscard]] T* allocate(std::size_t count) { return static_cast<T*>(takeScratch(count * sizeof(T))); }
    void deallocate(T* memory, std::size_t count) noexcept { giveScratchBack(memory, count * sizeof(T)); }
    // NOLINTEND(bugprone-sizeof-expression)

    friend bool operator==(const ScratchAllocator&, const ScratchAllocator&) { return true; }
};

/// Lives and dies on one thread. Elements need no more than the usual alignment.
template <class T>
using ScratchVector = std::vector<T, ScratchAllocator<T>>;

}  // namespace orvane
