#include "platform/graphics/brush.h"

#include <gtest/gtest.h>

#include <bitset>
#include <limits>
#include <string>
#include <vector>

#include "platform/graphics/hatch_patterns.h"
#include "support/every_target.h"

namespace orvane {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

std::vector<Argb> rowOf(const Brush& brush, int x, int y, std::size_t count) {
    std::vector<Argb> colours(count);
    brushRow(brush, x, y, count, colours.data());
    return colours;
}

// --- hatches ---

bool isMarked(const HatchPattern& pattern, int x, int y) {
    return (pattern[unsigned(y) % 8] >> (unsigned(x) % 8) & 1) != 0;
}

template <class Marked>
HatchPattern patternWhere(const Marked& marked) {
    HatchPattern pattern{};
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) pattern[std::size_t(y)] |= std::uint8_t(marked(x, y) ? 1 << x : 0);
    }
    return pattern;
}

int marksIn(const HatchPattern& pattern) {
    int count = 0;
    for (const std::uint8_t row : pattern) count += int(std::bitset<8>(row).count());
    return count;
}

bool isShiftOf(const HatchPattern& a, const HatchPattern& b) {
    for (int shift = 0; shift < 64; ++shift) {
        if (patternWhere([&](int x, int y) { return isMarked(b, x + shift % 8, y + shift / 8); }) == a)
            return true;
    }
    return false;
}

TEST(HatchBrush, NoPatternIsAnotherOneShifted) {
    for (int a = 0; a < HatchBrush::kStyles; ++a) {
        EXPECT_GT(marksIn(hatchPattern(a)), 0) << a;
        for (int b = 0; b < a; ++b) {
            EXPECT_FALSE(isShiftOf(hatchPattern(a), hatchPattern(b))) << a << " and " << b;
        }
    }
    EXPECT_EQ(hatchPattern(-1), HatchPattern{});
    EXPECT_EQ(hatchPattern(HatchBrush::kStyles), HatchPattern{});
}

TEST(HatchBrush, PercentagesAreSharesOfForeground) {
    const int percents[] = {5, 10, 20, 25, 30, 40, 50, 60, 70, 75, 80, 90};
    int style = 6;
    for (const int percent : percents) {
        EXPECT_NEAR(marksIn(hatchPattern(style)) / 0.64, percent, 2.6) << "style " << style;
        ++style;
    }
    EXPECT_EQ(hatchPattern(12), patternWhere([](int x, int y) { return (x + y) % 2 == 0; }));
}

TEST(HatchBrush, LinesRunTheWayTheirNamesSay) {
    const auto mirrored = [](int style) {
        return patternWhere([&](int x, int y) { return isMarked(hatchPattern(style), 7 - x, y); });
    };
    const auto turned = [](int style) {
        return patternWhere([&](int x, int y) { return isMarked(hatchPattern(style), y, x); });
    };
    const auto neighbours = [](int style, int side) {
        const HatchPattern pattern = hatchPattern(style);
        return marksIn(patternWhere(
            [&](int x, int y) { return isMarked(pattern, x, y) && isMarked(pattern, x + side, y + 1); }));
    };
    // Downward diagonals and their upward twins; horizontal styles and their vertical ones.
    for (const int style : {2, 18, 20, 22, 30}) {
        EXPECT_TRUE(isShiftOf(mirrored(style), hatchPattern(style + 1))) << style;
        EXPECT_GT(neighbours(style, 1), neighbours(style, -1)) << style;
    }
    for (const int style : {0, 24, 26, 28, 32}) EXPECT_EQ(turned(style), hatchPattern(style + 1)) << style;
}

TEST(HatchBrush, TilesFromTheOriginInBothDirections) {
    const Argb f = 0xFF111111u, b = 0x22222222u;
    const HatchBrush cross{4, f, b};
    EXPECT_EQ(rowOf(cross, -9, -3, 11), (std::vector<Argb>{b, f, b, b, b, b, b, b, b, f, b}));
    EXPECT_EQ(rowOf(cross, 5, -8, 3), (std::vector<Argb>{f, f, f}));
    EXPECT_EQ(rowOf(cross, kMax - 1, kMax, 2), (std::vector<Argb>{b, b}));
    EXPECT_EQ(rowOf(HatchBrush{53, f, b}, 0, 0, 2), (std::vector<Argb>{b, b}));
}

// --- gradients ---

std::int64_t modulo(std::int64_t a, std::int64_t n) { return (a % n + n) % n; }

/// The definition in fractions: how far along the run a pixel's centre lies, in 65536ths rounded down.
std::int64_t positionOf(const GradientBrush& brush, int x, int y) {
    const std::int64_t w = brush.area.width, h = brush.area.height;
    const std::int64_t i = 2 * (std::int64_t{x} - brush.area.x) + 1,
                       j = 2 * (std::int64_t{y} - brush.area.y) + 1;
    switch (brush.mode) {
        case GradientMode::Horizontal:
            return modulo(i, 2 * w) * 65536 / (2 * w);
        case GradientMode::Vertical:
            return modulo(j, 2 * h) * 65536 / (2 * h);
        case GradientMode::ForwardDiagonal:
            return modulo(i * h + j * w, 4 * w * h) * 65536 / (4 * w * h);
        case GradientMode::BackwardDiagonal:
            return modulo((2 * w - i) * h + j * w, 4 * w * h) * 65536 / (4 * w * h);
    }
    return 0;
}

Argb gradientColour(const GradientBrush& brush, int x, int y) {
    const std::int64_t p = positionOf(brush, x, y);
    Argb colour = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const std::int64_t from = brush.from >> shift & 255, to = brush.to >> shift & 255;
        colour |= Argb((from * (65536 - p) + to * p + 32768) / 65536) << shift;
    }
    return colour;
}

constexpr GradientMode kModes[] = {GradientMode::Horizontal, GradientMode::Vertical,
                                   GradientMode::ForwardDiagonal, GradientMode::BackwardDiagonal};

void checkGradientsAreTheirDefinition() {
    const IntRect areas[] = {{0, 0, 1, 1},    {3, -2, 2, 5},     {-7, 4, 10, 10},         {5, 5, 33, 3},
                             {0, 0, 256, 64}, {-100, 9, 77, 91}, {kMax - 20, kMin, 7, 9}, {1, 1, 4000, 3000}};
    for (const IntRect& area : areas) {
        for (const GradientMode mode : kModes) {
            const GradientBrush brush{area, 0xFFA52A00u, 0x000080FFu, mode};
            for (const int y : {-17, 0, 1, 6, 40, kMin, kMax}) {
                const auto row = rowOf(brush, -45, y, 120);
                for (int i = 0; i < 120; ++i) {
                    ASSERT_EQ(row[std::size_t(i)], gradientColour(brush, i - 45, y))
                        << "mode " << int(mode) << ", width " << area.width << ", x " << i - 45 << ", y "
                        << y;
                }
            }
        }
    }
}

void checkEveryLengthLeavesItsNeighboursAlone() {
    constexpr Argb kGuard = 0x12345678u;
    const Argb picture[] = {1, 2, 3};
    const Brush brushes[] = {SolidBrush{5}, HatchBrush{46, 1, 2},
                             GradientBrush{{0, 0, 50, 50}, 0, 0xFFFFFFFFu, GradientMode::BackwardDiagonal},
                             GradientBrush{{0, 0, 3, 2}, 0, 0xFFFFFFFFu, GradientMode::Horizontal},
                             TextureBrush{{picture, 3, 1, 3}, WrapMode::FlipX}};
    for (const Brush& brush : brushes) {
        const auto whole = rowOf(brush, -5, 3, 70);
        for (std::size_t count = 0; count <= 70; ++count) {
            std::vector<Argb> row(count + 2, kGuard);
            brushRow(brush, -5, 3, count, row.data() + 1);
            EXPECT_EQ(row.front(), kGuard);
            EXPECT_EQ(row.back(), kGuard);
            EXPECT_TRUE(std::equal(row.begin() + 1, row.end() - 1, whole.begin()))
                << "brush " << brush.index() << ", length " << count;
        }
    }
}

TEST(GradientBrush, IsItsDefinition) { test::onEveryTarget(checkGradientsAreTheirDefinition); }
TEST(Brush, EveryLengthLeavesItsNeighboursAlone) {
    test::onEveryTarget(checkEveryLengthLeavesItsNeighboursAlone);
}

TEST(GradientBrush, RunsFromCornerToCornerAndStartsOver) {
    const IntRect area{10, 20, 1000, 500};
    const Argb from = 0xFF000000u, to = 0xFFFFFFFFu;
    const struct {
        GradientMode mode;
        IntPoint first, last, middle;
    } rows[] = {
        {GradientMode::Horizontal, {10, 300}, {1009, 21}, {510, 5}},
        {GradientMode::Vertical, {10, 20}, {900, 519}, {0, 270}},
        {GradientMode::ForwardDiagonal, {10, 20}, {1009, 519}, {1009, 20}},
        {GradientMode::BackwardDiagonal, {1009, 20}, {10, 519}, {10, 20}},
    };
    for (const auto& row : rows) {
        const GradientBrush brush{area, from, to, row.mode};
        EXPECT_EQ(rowOf(brush, row.first.x, row.first.y, 1)[0], from) << int(row.mode);
        EXPECT_EQ(rowOf(brush, row.last.x, row.last.y, 1)[0], to) << int(row.mode);
        EXPECT_NEAR(redOf(rowOf(brush, row.middle.x, row.middle.y, 1)[0]), 128, 1) << int(row.mode);
    }
    const GradientBrush across{area, from, to, GradientMode::Horizontal};
    EXPECT_EQ(rowOf(across, 9, 0, 2), (std::vector<Argb>{to, from}));
    EXPECT_EQ(rowOf(across, 1009, 0, 2), (std::vector<Argb>{to, from}));
}

TEST(GradientBrush, TakesAnyRectangle) {
    const IntRect areas[] = {
        {kMin, kMin, kMax, kMax}, {kMax, kMax, kMax, kMax}, {0, 0, kMax, 1}, {0, 0, 1, kMax}};
    for (const IntRect& area : areas) {
        for (const GradientMode mode : kModes) {
            for (const int at : {kMin, -1, 0, kMax - 8}) rowOf(GradientBrush{area, 1, 2, mode}, at, at, 8);
        }
    }
    for (const IntRect& empty :
         {IntRect{}, IntRect{0, 0, 0, 5}, IntRect{0, 0, 5, -1}, IntRect{9, 9, kMin, kMin}}) {
        EXPECT_EQ(rowOf(GradientBrush{empty, 7, 8, GradientMode::Vertical}, 3, 3, 2),
                  (std::vector<Argb>{7, 7}));
    }
}

// --- textures ---

/// A texture of letters, and what a row of it reads.
std::string lettersIn(const TextureBrush& brush, int x, int y, std::size_t count) {
    std::string letters;
    for (const Argb colour : rowOf(brush, x, y, count)) letters += char(colour);
    return letters;
}

TEST(TextureBrush, RepeatsAndMirrors) {
    const Argb picture[] = {'a', 'b', 'c', '!', 'd', 'e', 'f', '!'};  // 3 x 2 in rows of 4
    const struct {
        WrapMode wrap;
        const char* rows[6];  // y from -2 to 3, x from -4 to 6
    } cases[] = {
        {WrapMode::Tile,
         {"cabcabcabca", "fdefdefdefd", "cabcabcabca", "fdefdefdefd", "cabcabcabca", "fdefdefdefd"}},
        {WrapMode::FlipX,
         {"ccbaabccbaa", "ffeddeffedd", "ccbaabccbaa", "ffeddeffedd", "ccbaabccbaa", "ffeddeffedd"}},
        {WrapMode::FlipY,
         {"fdefdefdefd", "cabcabcabca", "cabcabcabca", "fdefdefdefd", "fdefdefdefd", "cabcabcabca"}},
        {WrapMode::FlipXY,
         {"ffeddeffedd", "ccbaabccbaa", "ccbaabccbaa", "ffeddeffedd", "ffeddeffedd", "ccbaabccbaa"}},
    };
    for (const auto& test : cases) {
        const TextureBrush brush{{picture, 3, 2, 4}, test.wrap};
        for (int y = -2; y <= 3; ++y) {
            EXPECT_EQ(lettersIn(brush, -4, y, 11), test.rows[y + 2])
                << "wrap " << int(test.wrap) << ", y " << y;
        }
    }
}

TEST(TextureBrush, FarAwayAndWithoutAPicture) {
    const Argb picture[] = {'a', 'b', 'c'};
    // 2^31 is 2 more than a multiple of 6, and of 3.
    const TextureBrush mirrored{{picture, 3, 1, 3}, WrapMode::FlipXY};
    EXPECT_EQ(lettersIn(mirrored, kMin, kMin, 3), "baa");
    EXPECT_EQ(lettersIn(mirrored, kMax, kMax, 1), "b");
    EXPECT_EQ(rowOf(TextureBrush{}, 5, 5, 2), (std::vector<Argb>{0, 0}));
}

}  // namespace
}  // namespace orvane
