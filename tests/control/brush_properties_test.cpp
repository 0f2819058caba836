#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/image_codecs.h"
#include "support/temporary_folder.h"
#include "support/test_control.h"

namespace orvane {
namespace {

void writePicture(const std::string& path, Argb colour) {
    const Argb pixels[] = {colour, colour, colour, colour};
    ASSERT_TRUE(replaceFile(path, encodeImage({pixels, 2, 2, 2}, ImageFormat::Png, 100)));
}

/// The colour that fills the top-left pixel; nothing without a brush.
std::optional<Argb> brushColour(TestControl& control) {
    const auto brush = control.control().brush.current();
    if (!brush) return std::nullopt;
    Argb colour = 0;
    brushRow(*brush, 0, 0, 1, &colour);
    return colour;
}

TEST(BrushProperties, StylesBeyondTheKnownFillNothingAndAreKept) {
    TestControl control;
    EXPECT_EQ(brushColour(control), 0xFFA52A2Au);
    control.put("BrushStyle", 7);
    EXPECT_EQ(brushColour(control), std::nullopt);
    EXPECT_EQ(control.number("BrushStyle"), 7);
    control.put("BrushStyle", -1);
    EXPECT_EQ(control.number("BrushStyle"), 7);
    control.put("BrushColor1", ColorValue{0x030201});
    control.put("BrushStyle", 0);
    EXPECT_EQ(brushColour(control), 0xFF010203u);
}

TEST(BrushProperties, EveryPutReadsATextureInUseAgain) {
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        Value value;
        Argb alpha;
    } rows[] = {{"BrushStyle", 3, 0xFF000000u},
                {"BrushHatchStyle", 5, 0xFF000000u},
                {"BrushTextureStyle", 1, 0xFF000000u},
                {"BrushGradientStyle", 1, 0xFF000000u},
                {"BrushColor1", ColorValue{5}, 0xFF000000u},
                {"BrushColor2", ColorValue{5}, 0xFF000000u},
                {"BrushTransparency", 9, 0x09000000u},
                {"TextureFileName", folder.path16("wood.png"), 0xFF000000u}};
    for (const auto& row : rows) {
        TestControl control;
        writePicture(folder.path("wood.png"), 0x80000001u);
        control.put("TextureFileName", folder.path16("wood.png"));
        control.put("BrushStyle", 3);
        EXPECT_EQ(brushColour(control), 0xFF000001u) << row.name;
        writePicture(folder.path("wood.png"), 0x80000002u);
        control.put(row.name, row.value);
        EXPECT_EQ(brushColour(control), row.alpha | 2u) << row.name;
    }
    TestControl control;
    control.put("TextureFileName", folder.path16("wood.png"));
    control.put("BrushStyle", 3);
    writePicture(folder.path("wood.png"), 0x80000003u);
    control.put("BrushTextureStyle", 4);
    EXPECT_EQ(brushColour(control), 0xFF000002u) << "an ignored value reads nothing";
    control.put("TextureFileName", Value());
    EXPECT_EQ(brushColour(control), std::nullopt);
}

}  // namespace
}  // namespace orvane
