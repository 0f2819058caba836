#include <libdeflate.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "bounded_target.h"
#include "platform/linux/png_codec.h"
#include "platform/linux/png_format.h"

namespace {

/// Puts every chunk's check sum right. A search that had to guess them would never get past the first chunk.
std::vector<std::uint8_t> withCheckSums(const std::uint8_t* data, std::size_t size) {
    using namespace orvane::png;
    std::vector<std::uint8_t> file(data, data + size);
    std::size_t at = sizeof kSignature;
    while (at <= size && size - at >= kChunkOverhead) {
        const std::uint32_t length = readBig32(&file[at]);
        if (length > size - at - kChunkOverhead) break;
        writeBig32(&file[at + 8 + length], libdeflate_crc32(0, &file[at + 4], 4 + std::size_t(length)));
        at += kChunkOverhead + length;
    }
    return file;
}

/// Takes the bytes of the picture data for the raw picture and packs them: a search that had to keep DEFLATE
/// and its check sum right would hardly ever reach the filters.
std::vector<std::uint8_t> withPackedData(const std::vector<std::uint8_t>& file) {
    using namespace orvane::png;
    static libdeflate_compressor* const compressor = libdeflate_alloc_compressor(0);
    std::vector<std::uint8_t> packed;
    std::size_t at = sizeof kSignature;
    if (file.size() < at) return file;
    packed.assign(file.begin(), file.begin() + std::ptrdiff_t(at));
    while (file.size() - at >= kChunkOverhead) {
        const std::size_t length = readBig32(&file[at]), start = packed.size();
        if (length > file.size() - at - kChunkOverhead) break;
        packed.insert(packed.end(), file.begin() + std::ptrdiff_t(at),
                      file.begin() + std::ptrdiff_t(at + kChunkOverhead + length));
        if (readBig32(&file[at + 4]) == chunkType("IDAT")) {
            packed.resize(start + kChunkOverhead + libdeflate_zlib_compress_bound(compressor, length));
            const std::size_t size = libdeflate_zlib_compress(compressor, &file[at + 8], length,
                                                              &packed[start + 8], packed.size() - start - 8);
            writeBig32(&packed[start], std::uint32_t(size));
            packed.resize(start + kChunkOverhead + size);
        }
        at += kChunkOverhead + length;
    }
    return packed;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvane::fuzz::BoundedTarget target;
    const auto file = withCheckSums(data, size);
    (void)orvane::decodePng(file, target);
    const auto packed = withPackedData(file);
    (void)orvane::decodePng(withCheckSums(packed.data(), packed.size()), target);
    return 0;
}
