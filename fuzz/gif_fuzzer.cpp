#include "platform/linux/gif_codec.h"

#include <cstddef>

#include "bounded_decode_target.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvane::BoundedDecodeTarget target;
    (void)orvane::decodeGif({data, size}, target);
    return 0;
}
