#include "platform/graphics/scratch.h"

#include <algorithm>
#include <array>
#include <bit>
#include <new>
#include <utility>

namespace orvane {
namespace {

constexpr std::size_t kKeptBlocks = 8;
constexpr std::size_t kSmallestBlock = 1024, kLargestKept = std::size_t{1} << 20;

struct Block {
    void* memory = nullptr;
    std::size_t bytes = 0;
};

struct KeptBlocks {
    KeptBlocks() = default;
    KeptBlocks(const KeptBlocks&) = delete;
    KeptBlocks& operator=(const KeptBlocks&) = delete;
    ~KeptBlocks() {
        for (const Block& block : blocks) ::operator delete(block.memory);
    }

    std::array<Block, kKeptBlocks> blocks;
};

thread_local KeptBlocks kept;

// Few sizes, so that a block suits the next shape as well.
std::size_t blockSize(std::size_t bytes) {
    return bytes > kLargestKept ? bytes : std::bit_ceil(std::max(bytes, kSmallestBlock));
}

}  // namespace

void* takeScratch(std::size_t bytes) {
    const std::size_t size = blockSize(bytes);
    for (Block& block : kept.blocks) {
        if (block.memory != nullptr && block.bytes == size) return std::exchange(block, {}).memory;
    }
    return ::operator new(size);
}

void giveScratchBack(void* memory, std::size_t bytes) noexcept {
    const std::size_t size = blockSize(bytes);
    // The smallest makes room: it is the cheapest to have again.
    Block& least = *std::min_element(kept.blocks.begin(), kept.blocks.end(),
                                     [](const Block& a, const Block& b) { return a.bytes < b.bytes; });
    if (size > kLargestKept || size < least.bytes) {
        ::operator delete(memory);
        return;
    }
    ::operator delete(least.memory);
    least = {memory, size};
}

}  // namespace orvane
