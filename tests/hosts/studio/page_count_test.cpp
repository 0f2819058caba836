#include "studio/files/page_count.h"

#include <cstdint>
#include <fstream>
#include <initializer_list>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace orvane::studio {
namespace {

FileParts partsOf(const std::string& bytes) {
    const test::TemporaryFolder folder;
    std::ofstream(folder.path("picture"), std::ios::binary) << bytes;
    return partsOfFile(folder.path("picture"));
}

/// A TIFF file's skeleton: its header, and directories of one entry each.
class Tiff {
 public:
    Tiff(bool bigEndian, bool big) : bigEndian_(bigEndian), big_(big) {
        bytes_ = bigEndian ? "MM" : "II";
        add(2, big ? 43 : 42);
        if (big) add(2, 8).add(2, 0);
    }
    /// The place of a directory.
    Tiff& link(std::uint64_t place) { return add(big_ ? 8 : 4, place); }
    /// A directory without its link.
    Tiff& directory(std::uint64_t entries = 1) {
        add(big_ ? 8 : 2, entries);
        bytes_.append(big_ ? 20 : 12, '\1');
        return *this;
    }
    [[nodiscard]] std::uint64_t first() const { return big_ ? 16 : 8; }
    [[nodiscard]] std::uint64_t second() const { return first() + (big_ ? 36 : 18); }
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
    Tiff& add(int count, std::uint64_t value) {
        for (int i = 0; i < count; ++i) bytes_ += char(value >> 8 * (bigEndian_ ? count - 1 - i : i) & 255);
        return *this;
    }

    bool bigEndian_, big_;
    std::string bytes_;
};

TEST(PageCount, TiffFilesOfEveryForm) {
    for (const bool big : {false, true}) {
        for (const bool bigEndian : {false, true}) {
            const Tiff tiff(bigEndian, big);
            const std::uint64_t first = tiff.first(), second = tiff.second();
            const auto one = [&] { return Tiff(tiff).link(first).directory(); };
            EXPECT_EQ(partsOf(one().link(0).bytes()), FileParts::OnePicture);
            const std::string two = one().link(second).directory().link(0).bytes();
            EXPECT_EQ(partsOf(two), FileParts::Pages) << big << bigEndian;

            // Whatever is cut off so that the second directory's entries are not whole.
            const std::size_t whole = two.size() - (big ? 8 : 4);
            EXPECT_EQ(partsOf(two.substr(0, whole)), FileParts::Pages);
            for (std::size_t length = 0; length < whole; ++length)
                EXPECT_EQ(partsOf(two.substr(0, length)), FileParts::OnePicture) << length;

            const std::uint64_t many = big ? ~0ULL : 0xffff;
            EXPECT_EQ(partsOf(Tiff(tiff).link(first).directory(many).link(second).directory().bytes()),
                      FileParts::OnePicture);
            EXPECT_EQ(partsOf(one().link(second).directory(0).link(0).bytes()), FileParts::OnePicture);
            for (const std::uint64_t place : {first, std::uint64_t(0xfffffff0), ~std::uint64_t(0)})
                EXPECT_EQ(partsOf(one().link(place).directory().link(0).bytes()), FileParts::OnePicture)
                    << place;
        }
    }
}

TEST(PageCount, GifFiles) {
    using namespace std::string_literals;
    const std::string begin = "GIF89a\x04\0\x04\0\x80\0\0RGBRGB"s;
    const std::string comment = "\x21\xfe\x02;,\x01!\0"s;
    const std::string image = "\x2c\0\0\0\0\x04\0\x04\0\0\x02\x03,;!\x01,\0"s;
    const std::string ownColours = "\x2c\0\0\0\0\x04\0\x04\0\x80,,,,,,\x02\x01,\0"s;
    EXPECT_EQ(partsOf(begin + comment + image + comment + ";"), FileParts::OnePicture);
    EXPECT_EQ(partsOf(begin + image + ";" + image), FileParts::OnePicture)
        << "what follows the end is no part";
    EXPECT_EQ(partsOf(begin + ownColours + comment + image + ";"), FileParts::Frames);
    const std::string two = begin + comment + image + comment + image;
    const std::size_t seen = two.size() - image.size() + 10;
    for (std::size_t length = 0; length <= two.size(); ++length) {
        EXPECT_EQ(partsOf(two.substr(0, length)), length < seen ? FileParts::OnePicture : FileParts::Frames)
            << length;
    }
}

TEST(PageCount, WhatIsNoSuchFileIsOfOnePicture) {
    EXPECT_EQ(partsOf("\x89PNG\r\n\x1a\n"), FileParts::OnePicture);
    EXPECT_EQ(partsOfFile("/"), FileParts::OnePicture);
    EXPECT_EQ(partsOfFile("/no such file"), FileParts::OnePicture);
    EXPECT_EQ(partsOfFile("/dev/zero"), FileParts::OnePicture);
}

}  // namespace
}  // namespace orvane::studio
