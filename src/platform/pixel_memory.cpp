#include "platform/pixel_memory.h"

#include <array>
#include <cstdint>
#include <mutex>
#include <new>

#include "platform/huge_pages.h"

#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_ADDRESS_SANITIZER 1
#endif
#endif
#ifdef ORVANE_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace orvane {
namespace {

constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

std::align_val_t alignmentFor(std::size_t bytes) {
    return std::align_val_t{bytes >= 2 * kHugePageBytes ? kHugePageBytes : 64};
}

void* allocateFresh(std::size_t bytes) noexcept {
    void* memory = ::operator new(bytes, alignmentFor(bytes), std::nothrow);
    if (memory != nullptr && bytes >= 2 * kHugePageBytes) adviseHugePages(memory, bytes);
    return memory;
}

void releaseFresh(void* memory, std::size_t bytes) noexcept {
    ::operator delete(memory, alignmentFor(bytes));
}

/// A few blocks given back lately, the newest last. A filter step on a full history needs one spare; a
/// second one serves a step back and forth between two sizes.
class SparePool {
 public:
    void* take(std::size_t bytes) noexcept {
        const std::lock_guard lock(mutex_);
        for (std::size_t i = count_; i-- > 0;) {
            if (spares_[i].bytes != bytes) continue;
            void* memory = spares_[i].memory;
            removeAt(i);
            setPoisoned(memory, bytes, false);
            return memory;
        }
        return nullptr;
    }

    void give(void* memory, std::size_t bytes) noexcept {
        const std::lock_guard lock(mutex_);
        if (count_ == spares_.size()) releaseAt(0);
        setPoisoned(memory, bytes, true);
        spares_[count_++] = {memory, bytes};
    }

    bool trim() noexcept {
        const std::lock_guard lock(mutex_);
        const bool heldAny = count_ > 0;
        while (count_ > 0) releaseAt(count_ - 1);
        return heldAny;
    }

    ~SparePool() { trim(); }

 private:
    struct Block {
        void* memory;
        std::size_t bytes;
    };

    void releaseAt(std::size_t i) noexcept {
        const Block block = spares_[i];
        removeAt(i);
        setPoisoned(block.memory, block.bytes, false);
        releaseFresh(block.memory, block.bytes);
    }
    void removeAt(std::size_t i) noexcept {
        for (--count_; i < count_; ++i) spares_[i] = spares_[i + 1];
    }
    /// Lets the address sanitizer catch a use of memory that lies in the pool.
    static void setPoisoned([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes,
                            [[maybe_unused]] bool poisoned) noexcept {
#ifdef ORVANE_ADDRESS_SANITIZER
        if (poisoned) {
            ASAN_POISON_MEMORY_REGION(memory, bytes);
        } else {
            ASAN_UNPOISON_MEMORY_REGION(memory, bytes);
        }
#endif
    }

    std::mutex mutex_;
    std::array<Block, 2> spares_{};
    std::size_t count_ = 0;
};

SparePool& pool() noexcept {
    static SparePool instance;
    return instance;
}

}  // namespace

void* allocatePixelMemory(std::size_t bytes) noexcept {
    if (void* spare = pool().take(bytes)) return spare;
    if (void* fresh = allocateFresh(bytes)) return fresh;
    // Spares of other sizes may be all that stands between the caller and its picture.
    return pool().trim() ? allocateFresh(bytes) : nullptr;
}

void freePixelMemory(void* memory, std::size_t bytes) noexcept {
    if (memory != nullptr) pool().give(memory, bytes);
}

void trimPixelMemory() noexcept { pool().trim(); }

}  // namespace orvane
