#pragma once

namespace orvane {

/// Makes the program's allocations fail on demand: operator new in every build, and malloc with its
/// relatives, which the codec libraries use, where no sanitizer stands in front of them. Counts the blocks
/// alive as well.
class FailingAllocator {
 public:
    /// From now on on this thread the n-th allocation (from 1) and `more` after it fail; 0 fails none but
    /// counts.
    static void arm(long n, long more = 0) noexcept;
    /// Ends it; answers whether an allocation was refused.
    static bool disarm() noexcept;
    /// Allocations since arm().
    static long count() noexcept;
    /// Blocks handed out and not given back since the program began, as far as this allocator sees them.
    static long blocksAlive() noexcept;
};

}  // namespace orvane
