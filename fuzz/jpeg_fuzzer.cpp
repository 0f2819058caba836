#include <cstddef>
#include <cstdint>

#include "bounded_target.h"
#include "platform/linux/jpeg_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvane::fuzz::BoundedTarget target;
    (void)orvane::decodeJpeg({data, size}, target);
    return 0;
}
