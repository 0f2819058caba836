#include "tools/brush_settings.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/files.h"
#include "platform/image_codecs.h"
#include "support/failing_allocator.h"
#include "support/temporary_folder.h"

namespace orvane {
namespace {

class TextureFile : public testing::Test {
 protected:
    /// Writes a picture of 2 x 2 pixels of one colour.
    void writePicture(const std::string& name, Argb colour) const {
        const Argb pixels[] = {colour, colour, colour, colour};
        ASSERT_TRUE(replaceFile(folder.path(name), encodeImage({pixels, 2, 2, 2}, ImageFormat::Png, 100)));
    }
    /// A brush with texture style and the named file.
    [[nodiscard]] BrushSettings brushOf(const std::string& name) const {
        BrushSettings brush;
        brush.style = BrushSettings::Texture;
        brush.textureFileName = folder.path16(name);
        brush.textureFileChanged();
        return brush;
    }
    /// The colour that the brush paints with; nothing without a brush.
    static std::optional<Argb> colourOf(const BrushSettings& brush) {
        const auto current = brush.current();
        if (!current) return std::nullopt;
        Argb colour = 0;
        brushRow(*current, 0, 0, 1, &colour);
        return colour;
    }
    test::TemporaryFolder folder;
};

TEST(BrushSettings, HatchLinesAreOfTheSecondColourAndGradientsEndInIt) {
    BrushSettings brush;
    brush.style = BrushSettings::Gradient;
    brush.gradientMode = 2;
    brush.setGradientRectangle({1, 2, 3, 4});
    const auto gradient = std::get<GradientBrush>(*brush.current());
    EXPECT_EQ(gradient.area, (IntRect{1, 2, 3, 4}));
    EXPECT_EQ(gradient.mode, GradientMode::ForwardDiagonal);
    EXPECT_EQ(gradient.to, brush.colour2);
    brush.style = BrushSettings::Hatch;
    EXPECT_EQ(std::get<HatchBrush>(*brush.current()).foreground, brush.colour2);
    brush.style = BrushSettings::Texture;
    EXPECT_FALSE(brush.current());
}

TEST_F(TextureFile, TakesTheAlphaOfTheBrushWhateverItsOwn) {
    writePicture("transparent.png", 0x00102030u);
    BrushSettings brush = brushOf("transparent.png");
    EXPECT_EQ(colourOf(brush), 0xFF102030u);
    brush.colour1 = 0x40A52A2Au;
    brush.transparencyChanged();
    EXPECT_EQ(colourOf(brush), 0x40102030u);
    brush.style = BrushSettings::Solid;
    brush.colour1 = 0x20A52A2Au;
    brush.transparencyChanged();
    brush.style = BrushSettings::Texture;
    EXPECT_EQ(colourOf(brush), 0x20102030u) << "a texture that is not in use follows too";
}

TEST_F(TextureFile, OnlyATextureInUseIsReadAgain) {
    writePicture("wood.png", 0xFF000001u);
    BrushSettings brush = brushOf("wood.png");
    writePicture("wood.png", 0xFF000002u);
    EXPECT_EQ(colourOf(brush), 0xFF000001u);
    for (const int otherStyle : {0, 1, 2, 9}) {
        brush.style = otherStyle;
        brush.rebuild();
    }
    brush.style = BrushSettings::Texture;
    EXPECT_EQ(colourOf(brush), 0xFF000001u);
    brush.rebuild();
    EXPECT_EQ(colourOf(brush), 0xFF000002u);
}

TEST_F(TextureFile, OneThatHasGoneLeavesItsTextureAsItWasMade) {
    writePicture("wood.png", 0xFF000001u);
    BrushSettings brush = brushOf("wood.png");
    std::filesystem::remove(folder.path("wood.png"));
    brush.colour1 = 0x40A52A2Au;
    brush.transparencyChanged();
    brush.textureWrap = 3;
    brush.rebuild();
    EXPECT_EQ(colourOf(brush), 0xFF000001u);
    EXPECT_EQ(std::get<TextureBrush>(*brush.current()).wrap, WrapMode::Tile);
    brush.textureFileChanged();
    EXPECT_EQ(colourOf(brush), std::nullopt) << "a new name, even the same one, releases it first";

    writePicture("wood.png", 0xFF000002u);
    brush.rebuild();
    EXPECT_EQ(colourOf(brush), 0x40000002u);
    EXPECT_EQ(std::get<TextureBrush>(*brush.current()).wrap, WrapMode::FlipXY);
}

TEST_F(TextureFile, NamesOfNoPictureGiveNoBrush) {
    writePicture("wood.png", 0xFF000001u);
    std::ofstream(folder.path("text.png")) << "not a picture";
    // A header that promises more than any limit allows.
    std::ofstream(folder.path("huge.bmp"), std::ios::binary)
        << std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F\1\0\x20\0", 30)
        << std::string(40, '\0');
    const std::u16string names[] = {folder.path16("missing.png"),
                                    folder.path16("text.png"),
                                    folder.path16("huge.bmp"),
                                    folder.path16(""),
                                    u"",
                                    u"..",
                                    std::u16string(4, char16_t(0xD800)),
                                    folder.path16("wood.png") + std::u16string(1, u'\0')};
    for (const std::u16string& name : names) {
        BrushSettings brush = brushOf("wood.png");
        ASSERT_TRUE(brush.current());
        brush.textureFileName = name;
        brush.textureFileChanged();
        EXPECT_FALSE(brush.current()) << testing::PrintToString(name);
    }
    BrushSettings brush = brushOf("wood.png");
    std::ofstream(folder.path("wood.png"), std::ios::trunc) << "no longer a picture";
    brush.rebuild();
    EXPECT_FALSE(brush.current()) << "a file that is there replaces the texture, readable or not";
}

TEST_F(TextureFile, ShortNamesAreMissingEvenWhenTheFileIsThere) {
    writePicture("ab", 0xFF000001u);
    writePicture("abc", 0xFF000001u);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path(""));
    BrushSettings brush;
    brush.style = BrushSettings::Texture;
    brush.textureFileName = u"ab";
    brush.textureFileChanged();
    EXPECT_FALSE(brush.current());
    brush.textureFileName = u"abc";
    brush.textureFileChanged();
    EXPECT_TRUE(brush.current());
    std::filesystem::current_path(before);
}

TEST_F(TextureFile, IsReadWhollyOrNotWhenMemoryRunsOut) {
    writePicture("wood.png", 0xFF000001u);
    for (long n = 1;; ++n) {
        BrushSettings brush = brushOf("wood.png");
        FailingAllocator::arm(n, 1'000'000);
        brush.rebuild();
        if (!FailingAllocator::disarm()) break;
        const auto colour = colourOf(brush);
        EXPECT_TRUE(!colour || *colour == 0xFF000001u) << "allocation " << n;
        brush.rebuild();
        EXPECT_EQ(colourOf(brush), 0xFF000001u) << "allocation " << n;
    }
}

}  // namespace
}  // namespace orvane
