#include "support/failing_allocator.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_HOOK_MALLOC 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_HOOK_MALLOC 0
#endif
#endif
#ifndef ORVANE_HOOK_MALLOC
#ifdef __GLIBC__
#define ORVANE_HOOK_MALLOC 1
#else
#define ORVANE_HOOK_MALLOC 0
#endif
#endif

namespace orvane {
namespace {

struct State {
    bool armed = false, refused = false;
    long count = 0, first = 0, last = 0;
};
thread_local State state;
std::atomic<long> alive{0};

bool refuses() noexcept {
    if (!state.armed) return false;
    const long n = ++state.count;
    if (n < state.first || n > state.last) return false;
    state.refused = true;
    return true;
}

/// Some codec libraries are not prepared to be refused their own small blocks, and no system refuses those
/// first.
[[maybe_unused]] bool refusesLibrary(std::size_t bytes) noexcept {
    constexpr std::size_t kSmallBlock = 8192;
    return bytes >= kSmallBlock && refuses();
}

void* counted(void* block) noexcept {
    if (block != nullptr) alive.fetch_add(1, std::memory_order_relaxed);
    return block;
}
void forget(void* block) noexcept {
    if (block != nullptr) alive.fetch_sub(1, std::memory_order_relaxed);
}

}  // namespace

void FailingAllocator::arm(long n, long more) noexcept {
    constexpr long kNever = std::numeric_limits<long>::max();
    state = {true, false, 0, n == 0 ? kNever : n, n == 0 ? 0 : n + more};
}
bool FailingAllocator::disarm() noexcept {
    state.armed = false;
    return state.refused;
}
long FailingAllocator::count() noexcept { return state.count; }
long FailingAllocator::blocksAlive() noexcept { return alive.load(std::memory_order_relaxed); }

}  // namespace orvane

#if ORVANE_HOOK_MALLOC

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t bytes) {
    return orvane::refusesLibrary(bytes) ? nullptr : orvane::counted(__libc_malloc(bytes));
}
void* calloc(std::size_t n, std::size_t bytes) {
    return orvane::refusesLibrary(n * bytes) ? nullptr : orvane::counted(__libc_calloc(n, bytes));
}
void* realloc(void* block, std::size_t bytes) {
    if (orvane::refusesLibrary(bytes)) return nullptr;
    void* moved = __libc_realloc(block, bytes);
    if (block == nullptr) orvane::counted(moved);
    return moved;
}
void* memalign(std::size_t alignment, std::size_t bytes) {
    return orvane::refusesLibrary(bytes) ? nullptr : orvane::counted(__libc_memalign(alignment, bytes));
}
void* aligned_alloc(std::size_t alignment, std::size_t bytes) { return memalign(alignment, bytes); }
int posix_memalign(void** block, std::size_t alignment, std::size_t bytes) {
    void* memory = memalign(alignment, bytes);
    if (memory == nullptr) return ENOMEM;
    *block = memory;
    return 0;
}
void free(void* block) {
    orvane::forget(block);
    __libc_free(block);
}
}

namespace {
void* plainAllocate(std::size_t bytes) { return orvane::counted(__libc_malloc(bytes)); }
void* plainAllocate(std::size_t bytes, std::size_t alignment) {
    return orvane::counted(__libc_memalign(alignment, bytes));
}
void plainFree(void* block) { free(block); }
}  // namespace

#else

namespace {
void* plainAllocate(std::size_t bytes) { return orvane::counted(std::malloc(bytes)); }
void* plainAllocate(std::size_t bytes, std::size_t alignment) {
    return orvane::counted(std::aligned_alloc(alignment, (bytes + alignment - 1) / alignment * alignment));
}
void plainFree(void* block) {
    orvane::forget(block);
    std::free(block);
}
}  // namespace

#endif

void* operator new(std::size_t bytes) {
    void* block = orvane::refuses() ? nullptr : plainAllocate(bytes);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void* operator new(std::size_t bytes, std::align_val_t alignment) {
    void* block = orvane::refuses() ? nullptr : plainAllocate(bytes, static_cast<std::size_t>(alignment));
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return orvane::refuses() ? nullptr : plainAllocate(bytes);
}
void* operator new(std::size_t bytes, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return orvane::refuses() ? nullptr : plainAllocate(bytes, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept { plainFree(block); }
void operator delete(void* block, std::size_t) noexcept { plainFree(block); }
void operator delete(void* block, std::align_val_t) noexcept { plainFree(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept { plainFree(block); }
