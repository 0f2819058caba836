#include "platform/linux/gif_codec.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include <gif_lib.h>

#include "platform/codecs/quantiser.h"

namespace orvane {
namespace {

// The longest string of the compression is some 4096 pixels in a code of 12 bits, so no byte yields more. The
// logical screen may exceed its first image, but not without limit.
constexpr std::uint64_t kMaxPixelsPerByte = 4096;
constexpr std::uint64_t kAlwaysPlausiblePixels = 1u << 22;
constexpr int kMaxSide = 65535;

struct Reader {
    std::span<const std::uint8_t> rest;
};

int readBytes(GifFileType* gif, GifByteType* out, int count) noexcept {
    auto& rest = static_cast<Reader*>(gif->UserData)->rest;
    const std::size_t available = std::min(rest.size(), std::size_t(std::max(count, 0)));
    if (available > 0) std::memcpy(out, rest.data(), available);
    rest = rest.subspan(available);
    return int(available);
}

/// The library does not report every refused byte, so the refusal is remembered.
struct Writer {
    std::vector<std::uint8_t> out;
    bool failed = false;
};

int appendBytes(GifFileType* gif, const GifByteType* bytes, int count) noexcept {
    Writer& writer = *static_cast<Writer*>(gif->UserData);
    try {
        writer.out.insert(writer.out.end(), bytes, bytes + count);
        return count;
    } catch (...) {
        writer.failed = true;
        return 0;
    }
}

struct DecoderCloser {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
struct EncoderCloser {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};
struct ColourMapDeleter {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

/// Goes on to the first image and reads its description; extensions on the way may name a transparent index.
bool findFirstImage(GifFileType* gif, int& transparentIndex) {
    for (;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif, &record) == GIF_ERROR) return false;
        if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) != GIF_ERROR;
        if (record != EXTENSION_RECORD_TYPE) return false;

        int code = 0;
        GifByteType* block = nullptr;  // its length, then its bytes
        if (DGifGetExtension(gif, &code, &block) == GIF_ERROR) return false;
        while (block != nullptr) {
            GraphicsControlBlock control;
            if (code == GRAPHICS_EXT_FUNC_CODE &&
                DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK) {
                transparentIndex = control.TransparentColor;
            }
            if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) return false;
        }
    }
}

bool readPalette(const GifFileType* gif, int transparentIndex, std::array<Argb, 256>& palette) {
    const ColorMapObject* map = gif->Image.ColorMap != nullptr ? gif->Image.ColorMap : gif->SColorMap;
    if (map == nullptr || map->Colors == nullptr) return false;
    palette.fill(makeOpaque(0, 0, 0));
    for (int i = 0; i < std::min(map->ColorCount, 256); ++i) {
        const GifColorType& colour = map->Colors[i];
        palette[std::size_t(i)] = makeOpaque(colour.Red, colour.Green, colour.Blue);
    }
    if (transparentIndex >= 0 && transparentIndex < 256) palette[std::size_t(transparentIndex)] = 0;
    return true;
}

bool readRows(GifFileType* gif, const std::array<Argb, 256>& palette, MutablePixelView picture) {
    struct Pass {
        int first, step;
    };
    static constexpr Pass kSequential[] = {{0, 1}};
    static constexpr Pass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    const GifImageDesc& image = gif->Image;
    const std::span<const Pass> passes = image.Interlace ? std::span<const Pass>(kInterlaced) : kSequential;

    std::vector<GifPixelType> line(std::size_t(image.Width));
    for (const Pass& pass : passes) {
        for (int y = pass.first; y < image.Height; y += pass.step) {
            if (DGifGetLine(gif, line.data(), image.Width) == GIF_ERROR) return false;
            Argb* out = picture.row(image.Top + y) + image.Left;
            for (int x = 0; x < image.Width; ++x) out[x] = palette[line[std::size_t(x)]];
        }
    }
    return true;
}

bool writeFile(GifFileType* gif, PixelView picture, IndexedPicture& indexed) {
    int bits = 1;
    while ((std::size_t(1) << bits) < indexed.palette.size()) ++bits;
    const std::unique_ptr<ColorMapObject, ColourMapDeleter> map(GifMakeMapObject(1 << bits, nullptr));
    if (!map) return false;
    for (std::size_t i = 0; i < indexed.palette.size(); ++i) {
        const Argb colour = indexed.palette[i];
        map->Colors[i] = {GifByteType(redOf(colour)), GifByteType(greenOf(colour)),
                          GifByteType(blueOf(colour))};
    }

    const bool hasTransparency = indexed.transparentIndex >= 0;
    EGifSetGifVersion(gif, hasTransparency);
    if (EGifPutScreenDesc(gif, picture.width, picture.height, 8, 0, map.get()) == GIF_ERROR) return false;
    if (hasTransparency) {
        const GraphicsControlBlock control = {DISPOSAL_UNSPECIFIED, false, 0, indexed.transparentIndex};
        GifByteType block[4];
        const auto length = int(EGifGCBToExtension(&control, block));
        if (EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, length, block) == GIF_ERROR) return false;
    }
    if (EGifPutImageDesc(gif, 0, 0, picture.width, picture.height, false, nullptr) == GIF_ERROR) return false;
    for (int y = 0; y < picture.height; ++y) {
        GifPixelType* row = indexed.indices.data() + std::size_t(y) * std::size_t(picture.width);
        if (EGifPutLine(gif, row, picture.width) == GIF_ERROR) return false;
    }
    return true;
}

}  // namespace

bool decodeGif(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept try {
    Reader reader{bytes};
    const std::unique_ptr<GifFileType, DecoderCloser> gif(DGifOpen(&reader, readBytes, nullptr));
    int transparentIndex = NO_TRANSPARENT_COLOR;
    std::array<Argb, 256> palette;
    if (!gif || !findFirstImage(gif.get(), transparentIndex)) return false;
    if (!readPalette(gif.get(), transparentIndex, palette)) return false;

    const GifImageDesc& image = gif->Image;
    const int width = std::max(gif->SWidth, image.Left + image.Width);
    const int height = std::max(gif->SHeight, image.Top + image.Height);
    const std::uint64_t imagePixels = std::uint64_t(image.Width) * std::uint64_t(image.Height);
    const std::uint64_t screenPixels = std::uint64_t(width) * std::uint64_t(height);
    const std::uint64_t possiblePixels = bytes.size() * kMaxPixelsPerByte;
    if (image.Width < 1 || image.Height < 1 || !isAllowedImageSize(width, height) ||
        imagePixels > possiblePixels || screenPixels > std::max(kAlwaysPlausiblePixels, possiblePixels)) {
        return false;
    }

    const MutablePixelView picture = target.allocate(width, height);
    if (!picture) return false;
    if (imagePixels != screenPixels) {
        for (int y = 0; y < height; ++y) std::fill_n(picture.row(y), width, 0u);
    }
    return readRows(gif.get(), palette, picture);
} catch (...) {
    return false;
}

std::vector<std::uint8_t> encodeGif(PixelView picture) noexcept try {
    if (!picture || picture.width > kMaxSide || picture.height > kMaxSide ||
        !isAllowedImageSize(picture.width, picture.height)) {
        return {};
    }
    IndexedPicture indexed = quantise(picture);
    Writer writer;
    std::unique_ptr<GifFileType, EncoderCloser> gif(EGifOpen(&writer, appendBytes, nullptr));
    if (!gif || !writeFile(gif.get(), picture, indexed)) return {};
    gif.reset();  // closing writes the last byte
    if (writer.failed) return {};
    return std::move(writer.out);
} catch (...) {
    return {};
}

}  // namespace orvane
