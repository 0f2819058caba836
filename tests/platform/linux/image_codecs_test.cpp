#include "platform/image_codecs.h"

#include <gtest/gtest.h>

#include "support/recording_decode_target.h"

namespace orvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(ImageCodecs, TellTheirOwnFilesApartByContents) {
    const auto pixels = makeTestPixels(23, 17, true);
    const PixelView picture{pixels.data(), 23, 17, 23};
    const struct {
        ImageFormat format;
        bool exact;
    } rows[] = {{ImageFormat::Bmp, true},
                {ImageFormat::Jpeg, false},
                {ImageFormat::Gif, false},
                {ImageFormat::Tiff, true},
                {ImageFormat::Png, true}};
    for (const auto& row : rows) {
        const Bytes file = encodeImage(picture, row.format, 90);
        RecordingDecodeTarget target;
        EXPECT_TRUE(decodeImage(file, target)) << int(row.format);
        EXPECT_EQ(target.picture().width, 23) << int(row.format);
        EXPECT_EQ(target.picture().height, 17) << int(row.format);
        EXPECT_TRUE(!row.exact || decodesTo(decodeImage, file, picture)) << int(row.format);
    }
}

TEST(ImageCodecs, RefuseWhatTheyDoNotKnow) {
    for (const Bytes& bytes : {Bytes{}, Bytes{'B'}, Bytes{0xff, 0xd8}, Bytes{'G', 'I', 'F'}, Bytes(100, 'x'),
                               Bytes{'R', 'I', 'F', 'F', 4, 0, 0, 0, 'W', 'A', 'V', 'E'}}) {
        RecordingDecodeTarget target;
        EXPECT_FALSE(decodeImage(bytes, target));
        EXPECT_EQ(target.requests, 0);
    }
    const Argb pixel = 0xff000000u;
    EXPECT_TRUE(encodeImage({&pixel, 1, 1, 1}, ImageFormat(5), 90).empty());
    for (int format = 0; format <= 4; ++format)
        EXPECT_TRUE(encodeImage({}, ImageFormat(format), 90).empty()) << format;
}

}  // namespace
}  // namespace orvane
