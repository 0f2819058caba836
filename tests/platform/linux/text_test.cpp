#include "platform/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include "platform/graphics/fill.h"
#include "platform/graphics/source_over.h"
#include "support/failing_allocator.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using Text = std::u16string_view;

constexpr int kWidth = 240, kHeight = 80;
constexpr IntPoint kOrigin{20, 20};
constexpr Font kArial{u"Arial", 20};

Font sized(float emPixels) { return {u"Arial", emPixels}; }

/// Coverage of a text on a raster of its own: the alpha of opaque white on nothing.
struct Ink {
    std::vector<Argb> pixels = std::vector<Argb>(std::size_t(kWidth) * kHeight);

    Ink(const Font& font, Text text, double x = kOrigin.x, double y = kOrigin.y) {
        drawText(view(), font, text, SolidBrush{0xFFFFFFFFu}, x, y);
    }
    MutablePixelView view() { return {pixels.data(), kWidth, kHeight, kWidth}; }

    int at(int x, int y) const { return int(alphaOf(pixels[std::size_t(y * kWidth + x)])); }
    /// All coverage, in whole pixels.
    double amount() const {
        return std::accumulate(pixels.begin(), pixels.end(), 0.0,
                               [](double sum, Argb p) { return sum + alphaOf(p) / 255.0; });
    }
    /// The smallest rectangle that holds every pixel of more than `least` coverage.
    IntRect bounds(int least = 0) const {
        int left = kWidth, top = kHeight, right = 0, bottom = 0;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (at(x, y) <= least) continue;
                left = std::min(left, x), right = std::max(right, x + 1);
                top = std::min(top, y), bottom = std::max(bottom, y + 1);
            }
        }
        return right > left ? IntRect{left, top, right - left, bottom - top} : IntRect{};
    }
    /// Whether a row is wholly covered from left to right.
    bool hasLine(int y, int left, int right) const {
        for (int x = left; x < right; ++x) {
            if (at(x, y) != 255) return false;
        }
        return true;
    }
    friend bool operator==(const Ink& a, const Ink& b) { return a.pixels == b.pixels; }
};

TEST(Fonts, AreListedOnceEachInAlphabeticalOrder) {
    const auto families = fontFamilies();
    ASSERT_FALSE(families.empty());
    const auto lowered = [](std::u16string name) {
        for (char16_t& c : name) c = c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c;
        return name;
    };
    for (std::size_t i = 1; i < families.size(); ++i) {
        EXPECT_LT(lowered(families[i - 1]), lowered(families[i]));
    }
    for (const std::u16string& name : families) {
        EXPECT_GT(measureText({name, 20}, u"Ag").width, 0) << testing::PrintToString(name);
    }
    EXPECT_EQ(families.data(), fontFamilies().data()) << "listed once";
}

TEST(Fonts, AreFoundByNameWhateverTheCase) {
    for (const Text name : {u"Arial", u"Liberation Sans", u"Helvetica", u"Times New Roman", u"Courier New"}) {
        const auto found = findFontFamily(name);
        ASSERT_TRUE(found) << testing::PrintToString(std::u16string(name));
        EXPECT_EQ(fontFamilies()[*found], name);
    }
    EXPECT_EQ(findFontFamily(u"aRIAL"), findFontFamily(u"Arial"));
    for (const Text name : {u"Aria", u"Arial ", u"", u"No such family", u"sans-serif"}) {
        EXPECT_FALSE(findFontFamily(name)) << testing::PrintToString(std::u16string(name));
    }
    EXPECT_EQ(captionFamily(), u"Arial");
}

TEST(Fonts, OutsideTheListOrTheSizesNothingIsDrawn) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    for (const Font& font : {Font{u"No such family", 20}, Font{u"", 20}, sized(0), sized(-3), sized(513),
                             sized(kNan), sized(std::numeric_limits<float>::infinity())}) {
        EXPECT_FALSE(isFontAvailable(font));
        EXPECT_EQ(measureText(font, u"text").width, 0);
        EXPECT_EQ(measureText(font, u"text").height, 0);
        EXPECT_EQ(Ink(font, u"text").amount(), 0);
    }
    EXPECT_TRUE(isFontAvailable({kSansSerif, 0.5f}));
    EXPECT_GT(Ink({kSansSerif, 20}, u"text").amount(), 50);
}

TEST(Text, GrowsWithSizeLettersAndLines) {
    const TextExtent one = measureText(kArial, u"Width");
    EXPECT_EQ(one.height, std::floor(one.height));
    EXPECT_GE(one.height, 20);
    EXPECT_LT(one.height, 28);
    for (const float size : {8.0f, 40.0f, 127.0f}) {
        EXPECT_NEAR(measureText(sized(size), u"Width").width, one.width * size / 20, 0.02 * size);
    }
    const struct {
        const char16_t* text;
        int lines;
        const char16_t* widest;
    } rows[] = {{u"Width\nWi", 2, u"Width"},
                {u"W\r\nWidth", 2, u"Width"},
                {u"Width\r", 2, u"Width"},
                {u"\n\n", 3, u""},
                {u"\u2028Wi", 2, u"Wi"}};
    for (const auto& row : rows) {
        const TextExtent extent = measureText(kArial, row.text);
        EXPECT_EQ(extent.height, row.lines * one.height) << testing::PrintToString(std::u16string(row.text));
        EXPECT_EQ(extent.width, measureText(kArial, row.widest).width);
    }
}

TEST(Text, IsPlainAndEndsAtAZero) {
    const auto width = [](Text text) { return measureText(kArial, text).width; };
    EXPECT_EQ(width(u""), 0);
    EXPECT_EQ(measureText(kArial, u"").height, 0);
    EXPECT_EQ(width(Text(u"ab\0cd", 5)), width(u"ab"));
    EXPECT_NEAR(width(u"<b>&amp;"), width(u"<") + width(u"b") + width(u">") + width(u"&") + width(u"amp;"),
                0.1);
    EXPECT_EQ(Ink(kArial, u"a\xD800\xDC00z\xDC00"), Ink(kArial, u"a\U00010000z\uFFFD"));
    EXPECT_EQ(Ink(kArial, u"\xD800"), Ink(kArial, u"\uFFFD"));
}

TEST(Text, FillsItsBox) {
    for (const float size : {8.0f, 20.0f, 33.0f}) {
        const TextExtent box = measureText(sized(size), u"Highest jump");
        const IntRect ink = Ink(sized(size), u"Highest jump").bounds(8);
        EXPECT_GE(ink.x, kOrigin.x - 1);
        EXPECT_LE(ink.x, kOrigin.x + size / 5);
        EXPECT_GE(ink.y, kOrigin.y);
        EXPECT_LE(ink.bottom(), kOrigin.y + box.height);
        EXPECT_GE(ink.height, 0.85 * size);
        EXPECT_NEAR(ink.right(), kOrigin.x + box.width, 1 + size / 8);
    }
}

TEST(Text, LinesStandBelowEachOtherFromTheLeftEdge) {
    const Ink first(kArial, u"Upper"), both(kArial, u"Upper\nLower");
    const int lineHeight = int(measureText(kArial, u"Upper").height);
    const Ink second(kArial, u"Lower", kOrigin.x, kOrigin.y + lineHeight);
    Ink joined = first;
    for (std::size_t i = 0; i < joined.pixels.size(); ++i) joined.pixels[i] |= second.pixels[i];
    EXPECT_EQ(both, joined);
}

TEST(Text, StylesShow) {
    const Ink plain(kArial, u"gipsy");
    const TextExtent box = measureText(kArial, u"gipsy");
    Font font = kArial;
    font.bold = true;
    EXPECT_GT(Ink(font, u"gipsy").amount(), 1.25 * plain.amount());
    font = kArial;
    font.italic = true;
    EXPECT_FALSE(Ink(font, u"gipsy") == plain);

    // The rows that are covered from one side of the box to the other.
    const auto lines = [&](const Font& of) {
        const Ink ink(of, u"gipsy");
        std::vector<int> rows;
        for (int y = 0; y < kHeight; ++y) {
            if (ink.hasLine(y, kOrigin.x, kOrigin.x + int(box.width))) rows.push_back(y - kOrigin.y);
        }
        return rows;
    };
    font = kArial;
    EXPECT_TRUE(lines(font).empty());
    font.underline = true;
    const auto under = lines(font);
    ASSERT_FALSE(under.empty());
    EXPECT_GT(under.front(), 18) << "below the base line";
    font.underline = false;
    font.strikeout = true;
    const auto through = lines(font);
    ASSERT_FALSE(through.empty());
    EXPECT_LT(through.back(), 15) << "through the small letters";
    EXPECT_GT(through.front(), 8);
    EXPECT_GT(Ink(font, u"   ").amount(), 10) << "blanks are struck out too";
}

TEST(Text, IsCutOffAtTheRaster) {
    constexpr int kMax = std::numeric_limits<int>::max(), kMin = std::numeric_limits<int>::min();
    const Text text = u"Cut\nanywhere";
    Font font = kArial;
    font.underline = true;
    const Ink whole(font, text, 0, 0);
    const int width = 40, height = 30;
    for (const IntPoint origin : {IntPoint{0, 0},
                                  {-30, 0},
                                  {0, -17},
                                  {25, 20},
                                  {-17, -25},
                                  {39, 29},
                                  {40, 0},
                                  {0, 30},
                                  {-400, 0},
                                  {kMin, kMin},
                                  {kMax, 0},
                                  {0, kMax},
                                  {kMin, 0}}) {
        std::vector<Argb> guarded(std::size_t(width + 2) * (height + 2), 0x01020304u);
        const MutablePixelView all{guarded.data(), width + 2, height + 2, width + 2};
        const MutablePixelView inner = subView(all, {1, 1, width, height});
        fillRect(inner, {0, 0, width, height}, 0);
        drawText(inner, font, text, SolidBrush{0xFFFFFFFFu}, origin);
        for (int y = -1; y <= height; ++y) {
            for (int x = -1; x <= width; ++x) {
                const bool isInside = x >= 0 && y >= 0 && x < width && y < height;
                const std::int64_t fromX = std::int64_t(x) - origin.x, fromY = std::int64_t(y) - origin.y;
                const bool isDrawn = fromX >= 0 && fromX < kWidth && fromY >= 0 && fromY < kHeight;
                const Argb expected = !isInside ? 0x01020304u
                                      : isDrawn ? whole.pixels[std::size_t(fromY * kWidth + fromX)]
                                                : 0u;
                ASSERT_EQ(all.at(x + 1, y + 1), expected)
                    << origin.x << ' ' << origin.y << " at " << x << ' ' << y;
            }
        }
    }
}

TEST(Text, StandsBetweenPixelsInXAndOnWholeRows) {
    const Ink at(kArial, u"Place", 20, 20), beside(kArial, u"Place", 20.5, 20);
    EXPECT_FALSE(at == beside);
    EXPECT_NEAR(at.amount(), beside.amount(), 0.02 * at.amount());
    EXPECT_EQ(Ink(kArial, u"Place", 20, 20.4), at);
    EXPECT_EQ(Ink(kArial, u"Place", 20, 19.5), at);
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    for (const double wild : {kNan, 1e300, -1e300}) {
        EXPECT_EQ(Ink(kArial, u"Place", wild, 20).amount(), 0);
        EXPECT_EQ(Ink(kArial, u"Place", 20, wild).amount(), 0);
    }
}

TEST(Text, EveryBrushMeetsThePictureThroughTheGlyphs) {
    const std::vector<Argb> texture = test::randomPicture(7 * 5, 3);
    const Brush brushes[] = {
        SolidBrush{0x80FF8000u}, HatchBrush{3, 0xFF00FF00u, 0x40FF0000u},
        GradientBrush{{20, 20, 90, 40}, 0xFF000000u, 0x20FFFFFFu, GradientMode::Vertical},
        TextureBrush{{texture.data(), 7, 5, 7}, WrapMode::FlipXY}};
    Font font{u"Arial", 30, true};
    font.underline = true;  // crosses the letters, and must not darken them twice
    const Ink ink(font, u"gipsy");
    for (const Brush& brush : brushes) {
        std::vector<Argb> drawn = test::randomPicture(std::size_t(kWidth) * kHeight, 9), expected = drawn;
        drawText({drawn.data(), kWidth, kHeight, kWidth}, font, u"gipsy", brush, kOrigin);
        for (int y = 0; y < kHeight; ++y) {
            std::vector<Argb> colours(kWidth);
            std::vector<std::uint8_t> coverage(kWidth);
            brushRow(brush, 0, y, kWidth, colours.data());
            for (int x = 0; x < kWidth; ++x) coverage[std::size_t(x)] = std::uint8_t(ink.at(x, y));
            sourceOverMasked(colours.data(), coverage.data(), &expected[std::size_t(y * kWidth)], kWidth);
        }
        EXPECT_EQ(drawn, expected) << "brush " << brush.index();
    }
}

TEST(Text, LongLinesGoOnSeamlessly) {
    const double letter = measureText(kArial, u"n").width;
    const std::u16string line(3000, u'n');
    EXPECT_NEAR(measureText(kArial, line).width, 3000 * letter, 1);
    // The same letter 100 places before, at and behind the seam of two pieces.
    const auto letterAt = [&](int n) { return Ink(kArial, line, kOrigin.x - n * letter); };
    for (const int n : {1023, 1024, 1025}) {
        const Ink far = letterAt(n), near = letterAt(500);
        for (std::size_t i = 0; i < far.pixels.size(); ++i) {
            ASSERT_NEAR(int(alphaOf(far.pixels[i])), int(alphaOf(near.pixels[i])), 12) << n;
        }
    }
}

TEST(Text, AMillionCharactersAreNoBurden) {
    std::u16string text(1'000'000, u'w');
    EXPECT_GT(measureText(kArial, text).width, 1e7);
    EXPECT_GT(Ink(kArial, text, -5e6, 20).amount(), 500);
    for (std::size_t i = 50; i < text.size(); i += 51) text[i] = u'\n';
    EXPECT_GT(measureText(kArial, text).height, 3e5);
    EXPECT_GT(Ink(kArial, text, 0, -1e5).amount(), 2000);
}

TEST(Text, WidePicturesAreDrawnToTheirEnd) {
    const int width = 40000, height = 30;  // wider than one tile of the mask
    std::vector<Argb> pixels(std::size_t(width) * height);
    const std::u16string text(4000, u'm');
    drawText({pixels.data(), width, height, width}, kArial, text, SolidBrush{0xFFFFFFFFu}, IntPoint{0, 0});
    const double letter = measureText(kArial, u"m").width;
    for (int x = 0; x + 32 < width; x += 16) {
        int covered = 0;
        for (int y = 0; y < height; ++y) {
            for (int i = 0; i < 32; ++i) covered += alphaOf(pixels[std::size_t(y * width + x + i)]) > 128;
        }
        ASSERT_GT(covered, 50) << "from " << x << ", letters are " << letter << " apart";
    }
}

/// The box with digits that stands for a character that no font has: four full sides.
bool isMissingBox(const Ink& ink) {
    const IntRect box = ink.bounds(64);
    if (box.isEmpty()) return true;
    int side = 0;
    for (int y = box.y; y < box.bottom(); ++y)
        side += ink.at(box.x, y) > 64 && ink.at(box.right() - 1, y) > 64;
    for (int x = box.x; x < box.right(); ++x)
        side += ink.at(x, box.y) > 64 && ink.at(x, box.bottom() - 1) > 64;
    return side == box.width + box.height;
}

TEST(Scripts, AllFindAFont) {
    EXPECT_TRUE(isMissingBox(Ink(sized(40), u"\u0378"))) << "or else the rest proves nothing";
    for (const Text letter :
         {u"\u03A9", u"\u042F", u"\u05D0", u"\u0628", u"\u0915", u"\u6F22", u"\u306B", u"\uD55C"}) {
        EXPECT_FALSE(isMissingBox(Ink(sized(40), letter))) << std::hex << int(letter[0]);
    }
}

TEST(Scripts, ArabicLettersJoin) {
    const Text joined = u"\u0628\u0628\u0628", apart = u"\u0628\u200C\u0628\u200C\u0628";
    EXPECT_LT(measureText(kArial, joined).width, 0.8 * measureText(kArial, apart).width);
}

TEST(Scripts, HebrewRunsFromRightToLeft) {
    // Alef, then bet: bet stands on the left. Both orders have the same letters.
    const Text alef = u"\u05D0", bet = u"\u05D1", word = u"\u05D0\u05D1";
    const Ink both(kArial, word), left(kArial, bet);
    const Ink right(kArial, alef, kOrigin.x + measureText(kArial, bet).width);
    for (std::size_t i = 0; i < both.pixels.size(); ++i) {
        const int parts = int(alphaOf(left.pixels[i])) + int(alphaOf(right.pixels[i]));
        ASSERT_NEAR(int(alphaOf(both.pixels[i])), parts, 8);
    }
}

TEST(Scripts, DevanagariFormsConjunctsAndReorders) {
    const auto width = [](Text text) { return measureText(kArial, text).width; };
    const Text conjunct = u"\u0915\u094D\u0937", spelledOut = u"\u0915\u094D\u200C\u0937";
    EXPECT_LT(width(conjunct), 0.8 * width(spelledOut));
    // The short i is written behind its consonant and stands before it.
    const Ink syllable(sized(40), u"\u0930\u093F"), consonant(sized(40), u"\u0930");
    EXPECT_GT(syllable.bounds(64).width, consonant.bounds(64).width);
}

TEST(Text, IsTheSameOnEveryThread) {
    const Ink here(kArial, u"Thread");
    for (int i = 0; i < 3; ++i) {
        std::vector<Argb> there;
        std::thread([&] { there = Ink(kArial, u"Thread").pixels; }).join();
        EXPECT_EQ(there, here.pixels);
    }
}

TEST(Text, IsWholeOrMissingWithoutMemory) {
    const Text text = u"Memory\nlost";
    const Brush hatch = HatchBrush{3, 0xFF00FF00u, 0xFFFF0000u};
    std::vector<Argb> whole(std::size_t(kWidth) * kHeight), drawn = whole;
    const std::vector<Argb> nothing = whole;
    drawText({whole.data(), kWidth, kHeight, kWidth}, kArial, text, hatch, kOrigin);
    bool refused = true;
    for (long n = 1; refused; ++n) {
        (void)measureText(kArial, u"another text");  // so that this one is laid out anew
        drawn = nothing;
        FailingAllocator::arm(n);
        drawText({drawn.data(), kWidth, kHeight, kWidth}, kArial, text, hatch, kOrigin);
        refused = FailingAllocator::disarm();
        EXPECT_EQ(drawn, refused ? nothing : whole) << "allocation " << n;
    }
}

}  // namespace
}  // namespace orvane
