// Loading and saving a photograph, against libjpeg-turbo, libpng and spng doing the same.
//
// Usage: codecs_bench [picture]       any picture that the library reads, without transparency; without one a
//                                     synthetic photograph of 12 megapixels is used

#include <png.h>
#include <spng.h>
#include <turbojpeg.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "platform/image_codecs.h"
#include "support/ratio_timer.h"

namespace {

using namespace orvane;
using Bytes = std::vector<std::uint8_t>;
using Pixels = std::vector<Argb>;

/// The sides of the one picture that every row loads or saves.
int pictureWidth = 4000, pictureHeight = 3000;

/// Hands out the same memory for every decoding, as the peers get it.
struct ReusedTarget final : DecodeTarget {
    Pixels pixels;
    int width = 0, height = 0;
    MutablePixelView allocate(int w, int h) override {
        width = w;
        height = h;
        pixels.resize(std::size_t(w) * std::size_t(h));
        return {pixels.data(), w, h, w};
    }
};

PixelView viewOf(const Pixels& pixels) { return {pixels.data(), pictureWidth, pictureHeight, pictureWidth}; }

double hashed(int x, int y, unsigned seed) {
    unsigned v = unsigned(x) * 374761393u + unsigned(y) * 668265263u + seed * 2246822519u;
    v = (v ^ (v >> 13)) * 1274126177u;
    return ((v ^ (v >> 16)) & 0xffffu) / 65535.0;
}

double valueNoise(double x, double y, unsigned seed) {
    const int ix = int(x), iy = int(y);
    const double fx = x - ix, fy = y - iy;
    const double top = hashed(ix, iy, seed) * (1 - fx) + hashed(ix + 1, iy, seed) * fx;
    const double bottom = hashed(ix, iy + 1, seed) * (1 - fx) + hashed(ix + 1, iy + 1, seed) * fx;
    return top * (1 - fy) + bottom * fy;
}

/// Large soft shapes in colour, finer ones in brightness, and grain whose strength varies over the picture.
Pixels syntheticPhotograph() {
    Pixels pixels(std::size_t(pictureWidth) * std::size_t(pictureHeight));
    for (int y = 0; y < pictureHeight; ++y)
        for (int x = 0; x < pictureWidth; ++x) {
            const double light =
                60 * valueNoise(x / 60.0, y / 60.0, 7) + 20 * valueNoise(x / 9.0, y / 9.0, 9);
            const double grain = 10 * valueNoise(x / 200.0, y / 200.0, 3);
            unsigned channel[3];
            for (unsigned c = 0; c < 3; ++c)
                channel[c] = unsigned(60 + 100 * valueNoise(x / 400.0, y / 400.0, c) + light +
                                      grain * hashed(x, y, 11 + c));
            pixels[std::size_t(y) * pictureWidth + std::size_t(x)] =
                makeOpaque(channel[0], channel[1], channel[2]);
        }
    return pixels;
}

// A small photograph is not tiled into a larger one: packers find the tiles again, and sizes mean nothing.
Pixels loadedPhotograph(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    ReusedTarget target;
    if (!decodeImage(bytes, target)) return {};
    pictureWidth = target.width;
    pictureHeight = target.height;
    return target.pixels;
}

bool turboDecode(const Bytes& file, Pixels& out) {
    const tjhandle handle = tjInitDecompress();
    const int status = tjDecompress2(handle, file.data(), static_cast<unsigned long>(file.size()),
                                     reinterpret_cast<unsigned char*>(out.data()), pictureWidth,
                                     pictureWidth * 4, pictureHeight, TJPF_BGRA, 0);
    tjDestroy(handle);
    return status == 0;
}

Bytes turboEncode(const Pixels& picture, int quality, int sampling) {
    const tjhandle handle = tjInitCompress();
    unsigned char* buffer = nullptr;
    unsigned long size = 0;
    const int status =
        tjCompress2(handle, reinterpret_cast<const unsigned char*>(picture.data()), pictureWidth,
                    pictureWidth * 4, pictureHeight, TJPF_BGRX, &buffer, &size, sampling, quality, 0);
    Bytes file;
    if (status == 0) file.assign(buffer, buffer + size);
    tjFree(buffer);
    tjDestroy(handle);
    return file;
}

struct PngInput {
    const std::uint8_t* at;
};

void libpngDecode(const Bytes& file, Pixels& out) {
    PngInput input{file.data()};
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_read_fn(png, &input, [](png_structp self, png_bytep to, std::size_t count) {
        auto* from = static_cast<PngInput*>(png_get_io_ptr(self));
        std::memcpy(to, from->at, count);
        from->at += count;
    });
    png_read_info(png, info);
    png_set_bgr(png);
    png_set_filler(png, 255, PNG_FILLER_AFTER);
    for (int y = 0; y < pictureHeight; ++y)
        png_read_row(png, reinterpret_cast<png_bytep>(&out[std::size_t(y) * pictureWidth]), nullptr);
    png_destroy_read_struct(&png, &info, nullptr);
}

Bytes libpngEncode(const Pixels& picture) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(
        png, &file,
        [](png_structp self, png_bytep data, std::size_t count) {
            auto* to = static_cast<Bytes*>(png_get_io_ptr(self));
            to->insert(to->end(), data, data + count);
        },
        nullptr);
    png_set_IHDR(png, info, png_uint_32(pictureWidth), png_uint_32(pictureHeight), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, 0, 0);
    png_write_info(png, info);
    png_set_bgr(png);
    png_set_filler(png, 0, PNG_FILLER_AFTER);
    for (int y = 0; y < pictureHeight; ++y)
        png_write_row(png, reinterpret_cast<png_const_bytep>(&picture[std::size_t(y) * pictureWidth]));
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

void spngDecode(const Bytes& file, Pixels& out) {
    const std::unique_ptr<spng_ctx, decltype(&spng_ctx_free)> context(spng_ctx_new(0), &spng_ctx_free);
    spng_set_png_buffer(context.get(), file.data(), file.size());
    spng_decode_image(context.get(), nullptr, 0, SPNG_FMT_RGBA8, SPNG_DECODE_PROGRESSIVE);
    spng_row_info info;
    int status = 0;
    while (status == 0 && spng_get_row_info(context.get(), &info) == 0) {
        Argb* const row = &out[std::size_t(info.row_num) * pictureWidth];
        status = spng_decode_row(context.get(), row, std::size_t(pictureWidth) * sizeof(Argb));
        for (int x = 0; x < pictureWidth; ++x)
            row[x] = (row[x] & 0xff00ff00u) | ((row[x] >> 16) & 255u) | ((row[x] & 255u) << 16);
    }
}

bool decodesTo(const Bytes& file, ReusedTarget& target, const Pixels& expected, const char* what) {
    if (decodeImage(file, target) && target.pixels == expected) return true;
    std::printf("%s: results differ, nothing timed\n", what);
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    const Pixels picture = argc > 1 ? loadedPhotograph(argv[1]) : syntheticPhotograph();
    if (picture.empty()) {
        std::printf("cannot read %s\n", argv[1]);
        return 1;
    }
    ReusedTarget target;
    Pixels theirs(picture.size());
    bench::printRatioHeader();

    const struct {
        const char* name;
        int quality, sampling;
    } jpegs[] = {{"JPEG decode, quality 85, 4:2:0", 85, TJSAMP_420},
                 {"JPEG decode, quality 95, 4:4:4", 95, TJSAMP_444}};
    for (const auto& jpeg : jpegs) {
        const Bytes file = turboEncode(picture, jpeg.quality, jpeg.sampling);
        if (!turboDecode(file, theirs) || !decodesTo(file, target, theirs, jpeg.name)) return 1;
        bench::printRatioRow(jpeg.name, bench::measureRatio([&] { (void)decodeImage(file, target); },
                                                            [&] { turboDecode(file, theirs); }));
    }
    const Bytes ourJpeg = encodeImage(viewOf(picture), ImageFormat::Jpeg, 85);
    bench::printRatioRow(
        "JPEG encode, quality 85",
        bench::measureRatio([&] { (void)encodeImage(viewOf(picture), ImageFormat::Jpeg, 85); },
                            [&] { (void)turboEncode(picture, 85, TJSAMP_420); }));

    const Bytes png = libpngEncode(picture);
    if (!decodesTo(png, target, picture, "PNG decode")) return 1;
    libpngDecode(png, theirs);
    if (theirs != picture) return 1;
    spngDecode(png, theirs);
    if (theirs != picture) return 1;
    bench::printRatioRow(
        "PNG decode against libpng",
        bench::measureRatio([&] { (void)decodeImage(png, target); }, [&] { libpngDecode(png, theirs); }));
    bench::printRatioRow(
        "PNG decode against spng",
        bench::measureRatio([&] { (void)decodeImage(png, target); }, [&] { spngDecode(png, theirs); }));
    const Bytes ourPng = encodeImage(viewOf(picture), ImageFormat::Png, 0);
    if (!decodesTo(ourPng, target, picture, "PNG encode")) return 1;
    bench::printRatioRow(
        "PNG encode against libpng's defaults",
        bench::measureRatio([&] { (void)encodeImage(viewOf(picture), ImageFormat::Png, 0); },
                            [&] { (void)libpngEncode(picture); }, {.rounds = 1, .callsPerRound = 3}));
    std::printf("PNG size: ours %.2f MB, libpng's %.2f MB; JPEG size: %.2f MB\n", double(ourPng.size()) / 1e6,
                double(png.size()) / 1e6, double(ourJpeg.size()) / 1e6);
    return 0;
}
