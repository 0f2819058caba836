#include <cstddef>
#include <cstdint>

#include "bounded_target.h"
#include "platform/image_codecs.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvane::fuzz::BoundedTarget target;
    (void)orvane::decodeImage({data, size}, target);
    return 0;
}
