#include "platform/huge_pages.h"

#include <sys/mman.h>

namespace orvane {

void adviseHugePages(void* memory, std::size_t bytes) noexcept {
    (void)madvise(memory, bytes, MADV_HUGEPAGE);
}

}  // namespace orvane
