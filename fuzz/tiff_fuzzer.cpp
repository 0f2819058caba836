#include "platform/linux/tiff_codec.h"

#include <cstddef>

#include "bounded_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvane::fuzz::BoundedTarget target;
    (void)orvane::decodeTiff({data, size}, target);
    return 0;
}
