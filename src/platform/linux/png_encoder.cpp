#include "platform/linux/png_codec.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/linux/png_filters.h"
#include "platform/linux/png_format.h"

namespace orvane {
namespace {

using namespace png;

/// Within a few per cent of the size that zlib's default level reaches on photographs, in a fraction of its
/// time; higher levels of libdeflate gain next to nothing on filtered photographs.
constexpr int kCompressionLevel = 6;

/// Data beyond this are continued in a further chunk, whose length field could not hold them otherwise.
constexpr std::size_t kDataPerChunk = std::size_t{1} << 30;

bool isOpaque(PixelView picture) {
    for (int y = 0; y < picture.height; ++y) {
        const Argb* const row = picture.row(y);
        Argb all = 0xff000000u;
        for (int x = 0; x < picture.width; ++x) all &= row[x];
        if (alphaOf(all) != 255) return false;
    }
    return true;
}

void packRow(const Argb* row, int width, bool withAlpha, std::uint8_t* out) {
    if (withAlpha) {
        for (int x = 0; x < width; ++x, out += 4) {
            out[0] = std::uint8_t(redOf(row[x]));
            out[1] = std::uint8_t(greenOf(row[x]));
            out[2] = std::uint8_t(blueOf(row[x]));
            out[3] = std::uint8_t(alphaOf(row[x]));
        }
    } else {
        for (int x = 0; x < width; ++x, out += 3) {
            out[0] = std::uint8_t(redOf(row[x]));
            out[1] = std::uint8_t(greenOf(row[x]));
            out[2] = std::uint8_t(blueOf(row[x]));
        }
    }
}

/// Filter bytes and filtered rows; null when memory ran out.
Bytes filteredPicture(PixelView picture, std::size_t pixelBytes) {
    const std::size_t rowBytes = std::size_t(picture.width) * pixelBytes;
    Bytes filtered = allocateBytes(std::uint64_t(1 + rowBytes) * std::uint64_t(picture.height));
    if (!filtered) return nullptr;
    std::vector<std::uint8_t> current(rowBytes), above(rowBytes), scratch(1 + rowBytes);
    std::uint8_t* out = filtered.get();
    for (int y = 0; y < picture.height; ++y, out += 1 + rowBytes) {
        packRow(picture.row(y), picture.width, pixelBytes == 4, current.data());
        applyBestFilter(current.data(), above.data(), rowBytes, pixelBytes, out, scratch.data());
        std::swap(current, above);
    }
    return filtered;
}

void appendChunk(std::vector<std::uint8_t>& file, std::uint32_t type, std::span<const std::uint8_t> data) {
    const std::size_t start = file.size();
    file.resize(start + 8);
    writeBig32(&file[start], std::uint32_t(data.size()));
    writeBig32(&file[start + 4], type);
    file.insert(file.end(), data.begin(), data.end());
    const std::uint32_t checkSum = libdeflate_crc32(0, &file[start + 4], 4 + data.size());
    file.resize(file.size() + 4);
    writeBig32(&file[file.size() - 4], checkSum);
}

std::vector<std::uint8_t> pngFile(PixelView picture) {
    const bool withAlpha = !isOpaque(picture);
    const std::size_t pixelBytes = withAlpha ? 4 : 3;
    Bytes filtered = filteredPicture(picture, pixelBytes);
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(kCompressionLevel), &libdeflate_free_compressor);
    if (!filtered || !compressor) return {};

    const std::size_t rawBytes = (1 + std::size_t(picture.width) * pixelBytes) * std::size_t(picture.height);
    const std::size_t bound = libdeflate_zlib_compress_bound(compressor.get(), rawBytes);
    Bytes packed = allocateBytes(bound);
    if (!packed) return {};
    const std::size_t packedBytes =
        libdeflate_zlib_compress(compressor.get(), filtered.get(), rawBytes, packed.get(), bound);
    if (packedBytes == 0) return {};
    filtered.reset();

    std::uint8_t header[13] = {};
    writeBig32(header, std::uint32_t(picture.width));
    writeBig32(header + 4, std::uint32_t(picture.height));
    header[8] = 8;
    header[9] = withAlpha ? kRgba : kRgb;

    std::vector<std::uint8_t> file;
    file.reserve(packedBytes + kChunkOverhead * (packedBytes / kDataPerChunk + 3) + 64);
    file.assign(std::begin(kSignature), std::end(kSignature));
    appendChunk(file, chunkType("IHDR"), header);
    for (std::size_t at = 0; at < packedBytes; at += kDataPerChunk)
        appendChunk(file, chunkType("IDAT"), {packed.get() + at, std::min(kDataPerChunk, packedBytes - at)});
    appendChunk(file, chunkType("IEND"), {});
    return file;
}

}  // namespace

std::vector<std::uint8_t> encodePng(PixelView picture) noexcept {
    try {
        if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
        return pngFile(picture);
    } catch (...) {
        return {};
    }
}

}  // namespace orvane
