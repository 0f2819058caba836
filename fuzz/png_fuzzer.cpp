#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "bounded_target.h"
#include "platform/linux/png_codec.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

void appendBig32(Bytes& bytes, std::size_t value) {
    for (unsigned shift : {24u, 16u, 8u, 0u}) bytes.push_back(std::uint8_t(value >> shift));
}

Bytes packed(std::span<const std::uint8_t> raw) {
    uLongf size = compressBound(raw.size());
    Bytes result(size);
    compress2(result.data(), &size, raw.data(), raw.size(), 0);
    result.resize(size);
    return result;
}

/// Puts every chunk's check sum right: a search that had to guess them would never get past the first chunk.
/// packData: takes the bytes of the picture data for the raw picture and packs them, since a search that had
/// to keep DEFLATE right would hardly ever reach the pixels.
Bytes repaired(std::span<const std::uint8_t> input, bool packData) {
    Bytes file(input.begin(), input.begin() + std::ptrdiff_t(std::min<std::size_t>(8, input.size())));
    std::span<const std::uint8_t> rest = input.subspan(file.size());
    while (rest.size() >= 12) {
        const std::size_t length =
            std::size_t(rest[0]) << 24 | std::size_t(rest[1]) << 16 | std::size_t(rest[2]) << 8 | rest[3];
        if (length > rest.size() - 12) break;
        const auto type = rest.subspan(4, 4), data = rest.subspan(8, length);
        const bool isPicture = std::equal(type.begin(), type.end(), std::string_view("IDAT").begin());
        const Bytes contents = packData && isPicture ? packed(data) : Bytes(data.begin(), data.end());
        appendBig32(file, contents.size());
        const std::size_t start = file.size();
        file.insert(file.end(), type.begin(), type.end());
        file.insert(file.end(), contents.begin(), contents.end());
        appendBig32(file, crc32(0, &file[start], uInt(file.size() - start)));
        rest = rest.subspan(12 + length);
    }
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (bool packData : {false, true}) {
        orvane::fuzz::BoundedTarget target;
        (void)orvane::decodePng(repaired({data, size}, packData), target);
    }
    return 0;
}
