#include "platform/linux/png_codec.h"

#include <algorithm>
#include <csetjmp>
#include <utility>

#include <png.h>
#include <zlib.h>

namespace orvane {
namespace {

// libpng leaves a failed call by longjmp. Each function that calls setjmp below therefore has no object with
// a destructor in its own frame; what must be released sits in an object of the caller's frame.

/// DEFLATE cannot expand further: 258 bytes from a code of two bits. A picture that claims more than the file
/// can hold is a lie, found out before anything is allocated for it.
constexpr std::uint64_t kMaxExpansion = 1032;

/// Sides are judged by isAllowedImageSize; the library's own limit of a million would refuse wide pictures.
constexpr png_uint_32 kMaxSide = PNG_UINT_31_MAX;

[[noreturn]] void leave(png_structp png, png_const_charp) { png_longjmp(png, 1); }

void ignore(png_structp, png_const_charp) {}

struct Reader {
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, ignore);
    png_infop info = png_create_info_struct(png);
    std::span<const std::uint8_t> rest;

    explicit Reader(std::span<const std::uint8_t> bytes) : rest(bytes) {}
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    static void read(png_structp png, png_bytep to, std::size_t count) {
        auto& rest = static_cast<Reader*>(png_get_io_ptr(png))->rest;
        if (count > rest.size()) png_error(png, "the file is cut short");
        std::copy_n(rest.data(), count, to);
        rest = rest.subspan(count);
    }
};

/// Whether the header's picture is allowed and can come from so many bytes. The rows of an interlaced picture
/// are split and hence longer in total.
bool isPlausible(const Reader& reader, std::size_t fileBytes) {
    const png_uint_32 width = png_get_image_width(reader.png, reader.info);
    const png_uint_32 height = png_get_image_height(reader.png, reader.info);
    const std::uint64_t rowBytes = 1 + std::uint64_t(png_get_rowbytes(reader.png, reader.info));
    return isAllowedImageSize(width, height) && rowBytes * height <= fileBytes * kMaxExpansion;
}

/// Whatever the file holds becomes rows of B, G, R, A, which are pixels as they lie in memory.
void askForPixels(Reader& reader) {
    png_set_expand(reader.png);  // palette, fewer than 8 bits, and the single transparent colour
    png_set_scale_16(reader.png);
    png_set_gray_to_rgb(reader.png);
    png_set_bgr(reader.png);
    png_set_filler(reader.png, 255, PNG_FILLER_AFTER);
}

bool openPicture(Reader& reader) {
    if (!reader.png || !reader.info) return false;
    if (setjmp(png_jmpbuf(reader.png))) return false;
    const std::size_t fileBytes = reader.rest.size();
    png_set_read_fn(reader.png, &reader, Reader::read);
    png_set_user_limits(reader.png, kMaxSide, kMaxSide);
    png_set_benign_errors(reader.png, 1);
    // A negative count means every chunk that the picture itself does not need: texts and profiles, which may
    // be compressed without measure, are skipped unread.
    png_set_keep_unknown_chunks(reader.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(reader.png, reader.info);
    if (!isPlausible(reader, fileBytes)) return false;
    askForPixels(reader);
    return true;
}

bool readPixels(Reader& reader, MutablePixelView picture) {
    if (setjmp(png_jmpbuf(reader.png))) return false;
    const int passes = png_set_interlace_handling(reader.png);
    png_read_update_info(reader.png, reader.info);
    if (png_get_rowbytes(reader.png, reader.info) != std::size_t(picture.width) * sizeof(Argb)) return false;
    for (int pass = 0; pass < passes; ++pass)
        for (int y = 0; y < picture.height; ++y)
            png_read_row(reader.png, reinterpret_cast<png_bytep>(picture.row(y)), nullptr);
    png_read_end(reader.png, nullptr);  // fails where the end mark is missing
    return true;
}

/// What the choice of colour type and packing depends on.
struct Traits {
    bool opaque = true;
    bool drawn = false;
};

Traits traitsOf(PixelView picture) {
    Argb all = 0xff000000u;
    std::uint64_t repeats = 0;
    for (int y = 0; y < picture.height; ++y) {
        const Argb* const row = picture.row(y);
        unsigned rowRepeats = 0;
        for (int x = 0; x < picture.width; ++x) all &= row[x];
        for (int x = 1; x < picture.width; ++x) rowRepeats += row[x] == row[x - 1];
        repeats += rowRepeats;
    }
    // In photographs a tenth of the pixels equal their left neighbours, with much clear sky a half; in text
    // and drawings it is three quarters and more.
    const std::uint64_t pixels = std::uint64_t(picture.width) * std::uint64_t(picture.height);
    return {alphaOf(all) == 255, 3 * repeats > 2 * pixels};
}

struct Writer {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, leave, ignore);
    png_infop info = png_create_info_struct(png);
    std::vector<std::uint8_t> file;

    Writer() = default;
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }

    static void write(png_structp png, png_bytep data, std::size_t count) {
        if (!static_cast<Writer*>(png_get_io_ptr(png))->append(data, count)) png_error(png, "out of memory");
    }
    static void flush(png_structp) {}

 private:
    // The exception ends here: it must not meet the library's frames, and a longjmp must not leave a handler.
    bool append(const std::uint8_t* data, std::size_t count) noexcept {
        try {
            file.insert(file.end(), data, data + count);
            return true;
        } catch (...) {
            return false;
        }
    }
};

/// Photographs hardly ever repeat a string of bytes: looking only for runs makes their files 3 to 7 per cent
/// larger than the library's defaults do, in an eighth of the time. Drawings would double, so that theirs are
/// looked for, with the level that finds most of them in a third to two thirds of the time.
void choosePacking(png_structp png, bool drawn) {
    png_set_compression_level(png, 4);
    png_set_compression_strategy(png, drawn ? Z_FILTERED : Z_RLE);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB | PNG_FILTER_UP);
    png_set_compression_buffer_size(png, std::size_t{1} << 16);
}

bool writePicture(Writer& writer, PixelView picture, Traits traits) {
    if (!writer.png || !writer.info) return false;
    if (setjmp(png_jmpbuf(writer.png))) return false;
    png_set_write_fn(writer.png, &writer, Writer::write, Writer::flush);
    png_set_user_limits(writer.png, kMaxSide, kMaxSide);
    png_set_IHDR(writer.png, writer.info, png_uint_32(picture.width), png_uint_32(picture.height), 8,
                 traits.opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    choosePacking(writer.png, traits.drawn);
    png_write_info(writer.png, writer.info);
    png_set_bgr(writer.png);
    if (traits.opaque) png_set_filler(writer.png, 0, PNG_FILLER_AFTER);  // drops the fourth byte
    for (int y = 0; y < picture.height; ++y)
        png_write_row(writer.png, reinterpret_cast<png_const_bytep>(picture.row(y)));
    png_write_end(writer.png, nullptr);
    return true;
}

}  // namespace

bool decodePng(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    try {
        Reader reader(bytes);
        if (!openPicture(reader)) return false;
        const MutablePixelView picture = target.allocate(int(png_get_image_width(reader.png, reader.info)),
                                                         int(png_get_image_height(reader.png, reader.info)));
        return picture && readPixels(reader, picture);
    } catch (...) {
        return false;
    }
}

std::vector<std::uint8_t> encodePng(PixelView picture) noexcept {
    try {
        if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
        Writer writer;
        if (!writePicture(writer, picture, traitsOf(picture))) return {};
        return std::move(writer.file);
    } catch (...) {
        return {};
    }
}

}  // namespace orvane
