#include "platform/linux/jpeg_codec.h"

#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>
#include <jpeglib.h>

#include <functional>
#include <string>

#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Writes a picture with libjpeg; `set` may change anything between the defaults and the first row.
Bytes writtenByLibjpeg(int width, int height, J_COLOR_SPACE space, int components, const Bytes& samples,
                       const std::function<void(jpeg_compress_struct&)>& set = {}) {
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &memory, &size);
    info.image_width = JDIMENSION(width);
    info.image_height = JDIMENSION(height);
    info.input_components = components;
    info.in_color_space = space;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 95, TRUE);
    if (set) set(info);
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < height; ++y) {
        auto* row = const_cast<JSAMPLE*>(&samples[std::size_t(y) * std::size_t(width * components)]);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    const Bytes file(memory, memory + size);
    jpeg_destroy_compress(&info);
    std::free(memory);
    return file;
}

Bytes bgraBytes(const std::vector<Argb>& pixels) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(pixels.data());
    return {bytes, bytes + pixels.size() * 4};
}

Bytes testPicture(int width, int height, const std::function<void(jpeg_compress_struct&)>& set = {}) {
    return writtenByLibjpeg(width, height, JCS_EXT_BGRX, 4, bgraBytes(makeTestPixels(width, height, true)),
                            set);
}

Bytes flat(J_COLOR_SPACE space, const Bytes& colour,
           const std::function<void(jpeg_compress_struct&)>& set = {}) {
    Bytes samples;
    for (int i = 0; i < 24 * 18; ++i) samples.insert(samples.end(), colour.begin(), colour.end());
    return writtenByLibjpeg(24, 18, space, int(colour.size()), samples, set);
}

void makeProgressive(jpeg_compress_struct& info) { jpeg_simple_progression(&info); }

std::vector<Argb> decoded(const Bytes& file) {
    RecordingDecodeTarget target;
    if (!decodeJpeg(file, target) || !target.isGuardIntact()) return {};
    std::vector<Argb> pixels;
    const PixelView picture = target.picture();
    for (int y = 0; y < picture.height; ++y)
        pixels.insert(pixels.end(), picture.row(y), picture.row(y) + picture.width);
    return pixels;
}

/// The mean difference of the colour channels; 255 for pictures of different sizes.
double meanDifference(const std::vector<Argb>& a, const std::vector<Argb>& b) {
    if (a.size() != b.size() || a.empty()) return 255;
    double total = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        total += std::abs(int(redOf(a[i])) - int(redOf(b[i])));
        total += std::abs(int(greenOf(a[i])) - int(greenOf(b[i])));
        total += std::abs(int(blueOf(a[i])) - int(blueOf(b[i])));
    }
    return total / double(3 * a.size());
}

std::vector<Argb> softPicture(int width, int height, unsigned alpha) {
    std::vector<Argb> pixels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixels.push_back(makeArgb(alpha, unsigned(x * 255 / width), unsigned(y * 255 / height),
                                      unsigned((x + y) * 255 / (width + height))));
    return pixels;
}

TEST(JpegCodec, KeepsThePictureWithinWhatTheQualityAllows) {
    const int sizes[][2] = {{1, 1}, {7, 9}, {16, 16}, {67, 45}};
    for (const auto& size : sizes) {
        const auto opaque = softPicture(size[0], size[1], 255), clear = softPicture(size[0], size[1], 3);
        const PixelView picture{clear.data(), size[0], size[1], size[0]};
        const struct {
            int quality;
            double tolerance;
        } rows[] = {{100, 1.0}, {90, 3.0}, {75, 8.0}, {0, 90.0}};
        for (const auto& row : rows) {
            const auto result = decoded(encodeJpeg(picture, row.quality));
            EXPECT_LE(meanDifference(result, opaque), row.tolerance)
                << size[0] << " x " << size[1] << " quality " << row.quality;
            for (Argb pixel : result) EXPECT_EQ(alphaOf(pixel), 255u);
        }
    }
    EXPECT_TRUE(encodeJpeg({}, 90).empty());
    const std::vector<Argb> line(70000, 0xff808080u);
    EXPECT_TRUE(encodeJpeg({line.data(), 70000, 1, 70000}, 90).empty()) << "too wide for the format";
}

TEST(JpegCodec, SpendsMoreBytesOnMoreQuality) {
    const auto pixels = makeTestPixels(200, 150, true);
    std::size_t previous = 0;
    for (int quality : {0, 25, 50, 75, 89, 90, 100}) {
        const std::size_t size = encodeJpeg({pixels.data(), 200, 150, 200}, quality).size();
        EXPECT_GT(size, previous) << "quality " << quality;
        previous = size;
    }
}

TEST(JpegCodec, KeepsSharpColourFromQualityNinetyOn) {
    std::vector<Argb> stripes;
    for (int i = 0; i < 32 * 32; ++i) stripes.push_back(i % 2 ? 0xffff0000u : 0xff0000ffu);
    const PixelView picture{stripes.data(), 32, 32, 32};
    EXPECT_LT(meanDifference(decoded(encodeJpeg(picture, 90)), stripes), 10);
    EXPECT_GT(meanDifference(decoded(encodeJpeg(picture, 89)), stripes), 40);
}

TEST(JpegCodec, ReadsEveryColourSpace) {
    const auto withoutMarker = [](jpeg_compress_struct& info) { info.write_Adobe_marker = FALSE; };
    const auto asYcck = [](jpeg_compress_struct& info) { jpeg_set_colorspace(&info, JCS_YCCK); };
    const auto asRgb = [](jpeg_compress_struct& info) { jpeg_set_colorspace(&info, JCS_RGB); };
    // Ink 0.2, 0.6, 0, 0.25 on white paper: light 0.8 * 0.75, 0.4 * 0.75, 1 * 0.75.
    const Bytes ink = {51, 153, 0, 64}, inverted = {204, 102, 255, 191};
    const Argb inkColour = makeOpaque(153, 76, 191);
    const struct {
        const char* name;
        Bytes file;
        Argb colour;
    } rows[] = {
        {"grey", flat(JCS_GRAYSCALE, {77}), makeOpaque(77, 77, 77)},
        {"YCbCr", flat(JCS_RGB, {200, 100, 50}), makeOpaque(200, 100, 50)},
        {"RGB", flat(JCS_RGB, {200, 100, 50}, asRgb), makeOpaque(200, 100, 50)},
        {"CMYK", flat(JCS_CMYK, ink, withoutMarker), inkColour},
        {"Adobe CMYK", flat(JCS_CMYK, inverted), inkColour},
        {"Adobe YCCK", flat(JCS_CMYK, inverted, asYcck), inkColour},
        {"progressive grey", flat(JCS_GRAYSCALE, {77}, makeProgressive), makeOpaque(77, 77, 77)},
    };
    for (const auto& row : rows) {
        const auto pixels = decoded(row.file);
        ASSERT_EQ(pixels.size(), 24u * 18u) << row.name;
        for (Argb pixel : pixels) {
            ASSERT_LE(meanDifference({pixel}, {row.colour}), 2) << row.name;
            ASSERT_EQ(alphaOf(pixel), 255u) << row.name;
        }
    }
    EXPECT_TRUE(decoded(flat(JCS_UNKNOWN, {1, 2})).empty()) << "two components of unknown meaning";
}

TEST(JpegCodec, ReadsEverySamplingAndTheSamePixelsProgressively) {
    const auto original = softPicture(67, 45, 255);
    const int samplings[][2] = {{1, 1}, {2, 1}, {1, 2}, {2, 2}, {4, 1}};
    for (const auto& sampling : samplings) {
        const auto make = [&](bool progressive) {
            return writtenByLibjpeg(67, 45, JCS_EXT_BGRX, 4, bgraBytes(original), [&](auto& info) {
                info.comp_info[0].h_samp_factor = sampling[0];
                info.comp_info[0].v_samp_factor = sampling[1];
                info.restart_interval = 3;
                if (progressive) makeProgressive(info);
            });
        };
        const auto baseline = decoded(make(false));
        EXPECT_LE(meanDifference(baseline, original), 3) << sampling[0] << ":" << sampling[1];
        EXPECT_EQ(decoded(make(true)), baseline) << sampling[0] << ":" << sampling[1];
    }
}

TEST(JpegCodec, TakesAFileCutShortOnlyWhenNoPixelIsMissing) {
    const struct {
        const char* name;
        Bytes file;
    } rows[] = {{"baseline", testPicture(40, 30)},
                {"restarts", testPicture(40, 30, [](auto& info) { info.restart_interval = 2; })},
                {"progressive", testPicture(40, 30, makeProgressive)}};
    for (const auto& row : rows) {
        const auto whole = decoded(row.file);
        ASSERT_FALSE(whole.empty()) << row.name;
        for (std::size_t length = 0; length < row.file.size(); ++length) {
            const auto part = decoded(Bytes(row.file.begin(), row.file.begin() + std::ptrdiff_t(length)));
            if (!part.empty()) {
                ASSERT_EQ(part, whole) << row.name << " " << length;
                ASSERT_GE(length + 3, row.file.size()) << row.name;
            }
        }
    }
}

TEST(JpegCodec, ToleratesWhatHarmsNoPixel) {
    const Bytes file = testPicture(40, 30);
    const auto whole = decoded(file);
    Bytes changed = file;
    changed.insert(changed.end(), 100, 0xaa);
    EXPECT_EQ(decoded(changed), whole) << "bytes after the end";
    changed = file;
    changed.resize(changed.size() - 2);
    EXPECT_EQ(decoded(changed), whole) << "no end mark";
    changed = file;
    changed.insert(changed.begin() + 20, 5, 0x00);
    EXPECT_EQ(decoded(changed), whole) << "bytes between markers";

    changed = file;
    const Bytes orientation = {0xff, 0xe1, 0,    34,   'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42, 0, 0, 0, 8,
                               0,    1,    0x01, 0x12, 0,   3,   0,   0,   0, 1, 0,   6,   0, 0,  0, 0, 0, 0};
    changed.insert(changed.begin() + 20, orientation.begin(), orientation.end());
    EXPECT_EQ(decoded(changed), whole) << "the orientation of a camera";
}

TEST(JpegCodec, JudgesTheSizeBeforeAskingForMemory) {
    for (bool progressive : {false, true}) {
        Bytes file = progressive ? testPicture(40, 30, makeProgressive) : testPicture(40, 30);
        const std::uint8_t start[] = {0xff, std::uint8_t(progressive ? 0xc2 : 0xc0)};
        const auto frame = std::search(file.begin(), file.end(), start, start + 2);
        ASSERT_NE(frame, file.end());
        for (int i = 5; i < 9; ++i) frame[i] = 0xf0;
        RecordingDecodeTarget target;
        EXPECT_FALSE(decodeJpeg(file, target));
        EXPECT_EQ(target.requests, 0);
    }
    RecordingDecodeTarget refusing(100);
    EXPECT_FALSE(decodeJpeg(testPicture(40, 30), refusing));
}

TEST(JpegCodec, RefusesScansThatOnlyCostTime) {
    const Bytes file = writtenByLibjpeg(1024, 768, JCS_GRAYSCALE, 1, Bytes(1024 * 768, 90), makeProgressive);
    const std::uint8_t scanMark[] = {0xff, 0xda};
    const auto lastScan = std::find_end(file.begin(), file.end(), scanMark, scanMark + 2);
    const Bytes scan(lastScan, file.end() - 2);
    const auto repeated = [&](int times) {
        Bytes longer = file;
        for (int i = 0; i < times; ++i) longer.insert(longer.end() - 2, scan.begin(), scan.end());
        return longer;
    };
    EXPECT_FALSE(decoded(repeated(5)).empty());
    EXPECT_TRUE(decoded(repeated(100)).empty());
}

}  // namespace
}  // namespace orvane
