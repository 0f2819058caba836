#include <gtest/gtest.h>

#include "support/test_control.h"

namespace orvane {
namespace {

struct PutRow {
    const char* name;
    int put, readsBack;
    bool redraws;
};

/// Reads a whole number from a Long or a Byte property.
int wholeNumber(TestControl& control, const char* name) {
    const Value value = control.get(name);
    return value.type() == ValueType::Byte ? value.byte() : value.number();
}

void expectPut(TestControl& control, const PutRow& row) {
    control.redraws();
    control.put(row.name, row.put);
    EXPECT_EQ(wholeNumber(control, row.name), row.readsBack) << row.name << " = " << row.put;
    EXPECT_EQ(control.redraws(), row.redraws ? 1 : 0) << row.name << " = " << row.put;
}

TEST(Properties, RangesAndRedrawsOutsideAnyTool) {
    const PutRow rows[] = {
        {"PenWidth", 0, 1, false},           {"PenWidth", 8, 8, true},
        {"PenWidth", 9, 8, false},           {"PenWidth", 1, 1, true},
        {"PenStyle", -7, -7, true},          {"PenStyle", 99, 99, true},
        {"BrushStyle", -1, 0, false},        {"BrushStyle", 77, 77, false},
        {"BrushHatchStyle", 52, 52, false},  {"BrushHatchStyle", 53, 52, false},
        {"BrushHatchStyle", -1, 52, false},  {"BrushTextureStyle", 3, 3, false},
        {"BrushTextureStyle", 4, 3, false},  {"BrushGradientStyle", 3, 3, false},
        {"BrushGradientStyle", 4, 3, false}, {"SprayRadius", 7, 16, false},
        {"SprayRadius", 8, 8, false},        {"SprayRadius", 50, 50, false},
        {"SprayRadius", 51, 50, false},      {"ToolBrushSize", 11, 11, true},
        {"ToolBrushSize", 12, 11, true},     {"ToolBrushSize", 0, 11, true},
        {"ToolBrushStyle", 5, 5, true},      {"ToolBrushStyle", 6, 5, true},
        {"ToolBrushStyle", 0, 0, true},      {"EraserSize", 1, 1, true},
        {"EraserSize", 12, 1, true},         {"ImageStyle", 6, 6, false},
        {"ImageStyle", 7, 6, false},         {"FontIndex", -5, -5, true},
        {"FontSize", 7, 20, false},          {"FontSize", 8, 8, false},
        {"FontSize", 128, 128, false},       {"FontSize", 129, 128, false},
        {"JpegQuality", -5, 0, false},       {"JpegQuality", 250, 100, false},
        {"PenTransparency", 128, 128, true}, {"BrushTransparency", 100, 100, true},
        {"ImageTransparency1", 3, 3, false}, {"ImageTransparency2", 4, 4, false},
    };
    TestControl control;
    for (const PutRow& row : rows) expectPut(control, row);
}

TEST(Properties, SomePutsRedrawOnlyInTheirMode) {
    const struct {
        int mode;
        PutRow put;
    } rows[] = {
        {11, {"BrushStyle", -1, 0, true}}, {11, {"BrushHatchStyle", 53, 4, true}},
        {11, {"FontSize", 8, 8, false}},   {14, {"FontSize", 7, 20, true}},
        {14, {"FontSize", 30, 30, true}},  {11, {"ImageStyle", 2, 2, false}},
        {16, {"ImageStyle", 7, 0, true}},  {16, {"ImageTransparency1", 9, 9, true}},
        {-3, {"BrushStyle", 1, 1, false}},
    };
    for (const auto& row : rows) {
        TestControl control;
        control.call("NewImage", {20, 20});
        control.put("PaintStatus", row.mode);
        expectPut(control, row.put);
    }
    TestControl control;
    control.put("ScrollWindowVisible", false);
    control.redraws();
    control.put("ScrollWindowColor", ColorValue{5});
    EXPECT_EQ(control.redraws(), 0);
    control.put("ScrollWindowVisible", true);
    EXPECT_EQ(control.redraws(), 1);
    control.put("ScrollWindowColor", ColorValue{6});
    EXPECT_EQ(control.redraws(), 1);
}

TEST(Properties, ColoursKeepTheRightAlpha) {
    TestControl control;
    control.put("PenTransparency", 128);
    control.put("PenColor", ColorValue{0x00FF0000});
    EXPECT_EQ(control.control().pen.colour, 0x800000FFu);
    EXPECT_EQ(control.colour("PenColor"), 0x00FF0000u);

    control.put("BrushTransparency", 100);
    control.put("BrushColor2", ColorValue{0x00112233});
    EXPECT_EQ(control.control().brush.colour2, 0x64332211u);
    control.put("BrushTransparency", 200);
    EXPECT_EQ(control.control().brush.colour1, 0xC8A52A2Au);
    EXPECT_EQ(control.control().brush.colour2, 0xC8332211u);

    control.put("ScrollWindowColor", ColorValue{0x00102030});
    EXPECT_EQ(control.control().scrollWindow.colour, 0x8C302010u);
    EXPECT_EQ(control.colour("ScrollWindowColor"), 0x00102030u);

    for (const char* name : {"BackColor1", "BitmapBackColor", "FrameColor", "ImageMaskColor"}) {
        control.put(name, ColorValue{0xFF123456});
        EXPECT_EQ(control.colour(name), 0x00123456u) << name;
    }
    EXPECT_EQ(control.control().backgroundColor, 0xFF563412u);
}

TEST(Properties, InitialValues) {
    TestControl control;
    const struct {
        const char* name;
        int value;
    } numbers[] = {
        {"JpegQuality", 90},        {"PaintStatus", 0},         {"PenWidth", 1},       {"PenStyle", 0},
        {"PenTransparency", 255},   {"BrushTransparency", 255}, {"BrushStyle", 0},     {"BrushHatchStyle", 4},
        {"SprayRadius", 16},        {"ToolBrushSize", 4},       {"ToolBrushStyle", 3}, {"EraserSize", 3},
        {"ImageTransparency2", 10}, {"ImageWidth", 0},          {"FontSize", 20}};
    for (const auto& row : numbers) EXPECT_EQ(wholeNumber(control, row.name), row.value) << row.name;
    const struct {
        const char* name;
        std::uint32_t value;
    } colours[] = {{"PenColor", 0x0000FF},    {"ScrollWindowColor", 0x787878}, {"BitmapBackColor", 0xFFFFFF},
                   {"FrameColor", 0xD3D3D3},  {"BackColor1", 0x8B0000},        {"ImageMaskColor", 0xFFFFFF},
                   {"BrushColor1", 0x2A2AA5}, {"BrushColor2", 0x008000}};
    for (const auto& row : colours) EXPECT_EQ(control.colour(row.name), row.value) << row.name;
    EXPECT_EQ(control.get("Zoom").real(), 1.0);
    EXPECT_TRUE(control.flag("ScrollWindowVisible"));
    EXPECT_TRUE(control.flag("IsEmpty"));
}

TEST(Properties, TextureFileNameKeepsItsOwnCopy) {
    TestControl control;
    EXPECT_EQ(control.get("TextureFileName").string(), u"No texture");
    control.put("TextureFileName", u"wood.png");
    EXPECT_EQ(control.get("TextureFileName").string(), u"wood.png");
    control.put("TextureFileName", u"");
    EXPECT_EQ(control.get("TextureFileName").string(), u"");
    control.put("TextureFileName", Value());
    EXPECT_EQ(control.get("TextureFileName").string(), u"No texture");
}

TEST(Properties, FontStyleBitsAreIndependent) {
    TestControl control;
    control.put("FontStyleItalic", true);
    control.put("FontStyleStrikeout", true);
    EXPECT_EQ(control.control().text.fontStyleBits, 2 | 8);
    control.put("FontStyleBold", true);
    control.put("FontStyleItalic", false);
    EXPECT_EQ(control.control().text.fontStyleBits, 1 | 8);
    EXPECT_TRUE(control.flag("FontStyleBold"));
    EXPECT_FALSE(control.flag("FontStyleItalic"));
}

TEST(PaintStatus, NeedsAPictureAndDrivesTimerAndCursor) {
    TestControl control;
    control.redraws();
    control.put("PaintStatus", 11);
    EXPECT_EQ(control.number("PaintStatus"), 0);
    EXPECT_EQ(control.redraws(), 0);
    control.call("NewImage", {100, 100});
    control.redraws();
    const struct {
        int mode;
        bool timer, captured;
        CursorId cursor;
    } rows[] = {{11, false, false, CursorId::Arrow}, {7, true, false, CursorId::Arrow},
                {18, true, false, CursorId::Arrow},  {12, false, true, CursorId::Brush},
                {3, false, true, CursorId::Pencil},  {1000, false, false, CursorId::Arrow},
                {-4, false, false, CursorId::Arrow}};
    for (const auto& row : rows) {
        control.put("PaintStatus", row.mode);
        EXPECT_EQ(control.number("PaintStatus"), row.mode);
        EXPECT_EQ(control.window().isTimerRunning(), row.timer) << row.mode;
        EXPECT_EQ(control.window().timerPeriodMs(), row.timer ? 50 : 0) << row.mode;
        EXPECT_EQ(control.window().isCaptured(), row.captured) << row.mode;
        EXPECT_EQ(control.window().cursor(), row.cursor) << row.mode;
        EXPECT_EQ(control.redraws(), 1) << row.mode;
    }
    control.put("PaintStatus", 12);
    control.call("Empty");
    EXPECT_EQ(control.number("PaintStatus"), 12) << "the mode outlives the picture";
    control.control().onDestroy();
    EXPECT_FALSE(control.window().isCaptured());
}

}  // namespace
}  // namespace orvane
