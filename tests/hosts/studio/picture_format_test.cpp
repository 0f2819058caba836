#include "studio/files/picture_format.h"

#include <gtest/gtest.h>

namespace orvane::studio {
namespace {

const PictureFormat& named(std::string_view label) {
    for (const PictureFormat& format : saveFormats()) {
        if (label == format.label) return format;
    }
    ADD_FAILURE() << label;
    return saveFormats().front();
}

TEST(PictureFormat, IsKnownByTheExtension) {
    EXPECT_EQ(formatOfName("/a/b.PNG"), &named("PNG"));
    EXPECT_EQ(formatOfName("b.JpEg"), &named("JPEG"));
    EXPECT_EQ(formatOfName("b.tiff"), &named("TIFF"));
    for (const char* none : {"b", "", ".png", "/folder.png/b", "b.", "b.webp", "b.pn", "b.jpeg jpe"}) {
        EXPECT_EQ(formatOfName(none), nullptr) << none;
    }
}

TEST(PictureFormat, NamesAreChangedToTheFormat) {
    const PictureFormat& jpeg = named("JPEG");
    EXPECT_EQ(nameInFormat("lake.png", jpeg), "lake.jpg");
    EXPECT_EQ(nameInFormat("lake.webp", jpeg), "lake.jpg");
    EXPECT_EQ(nameInFormat("lake.jpeg", jpeg), "lake.jpeg");
    EXPECT_EQ(nameInFormat("lake 3.5", jpeg), "lake 3.5.jpg");
    EXPECT_EQ(nameInFormat("/a.png/lake", jpeg), "/a.png/lake.jpg");
    EXPECT_EQ(nameInFormat(".hidden", jpeg), ".hidden.jpg");
}

}  // namespace
}  // namespace orvane::studio
