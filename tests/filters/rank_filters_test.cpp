#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

#include "filters/kernels/median_window.h"
#include "filters/kernels/window_extremes.h"
#include "filters/maximal.h"
#include "filters/median.h"
#include "filters/minimal.h"
#include "support/pictures.h"

namespace orvane {
namespace {

using test::loadPicture;
using test::pictureOf;

constexpr struct {
    const char* name;
    void (*run)(ImageDocument&, int);
} kFilters[] = {{"minimal", minimal}, {"maximal", maximal}, {"median", median}};

/// Letters in rows as an opaque picture: w white, k black, r red, b blue.
std::vector<Argb> picture(const std::string& letters) {
    std::vector<Argb> pixels;
    for (const char letter : letters) {
        pixels.push_back(letter == 'w'   ? 0xFFFFFFFFu
                         : letter == 'r' ? 0xFFFF0000u
                         : letter == 'b' ? 0xFF0000FFu
                                         : 0xFF000000u);
    }
    return pixels;
}

TEST(RankFilters, DoToSpecksAndEdgesWhatTheyAreFor) {
    const struct {
        const char* name;
        void (*run)(ImageDocument&, int);
        const char *before, *after;
    } rows[] = {
        {"minimal takes a bright speck", minimal, "kkkkk kkkkk kkwkk kkkkk", "kkkkk kkkkk kkkkk kkkkk"},
        {"maximal grows it", maximal, "kkkkk kkkkk kkwkk kkkkk", "kkkkk kwwwk kwwwk kwwwk"},
        {"maximal grows it to the border", maximal, "wkkkk kkkkk kkkkk kkkkw", "wwkkk wwkkk kkkww kkkww"},
        {"median takes it", median, "kkkkk kkkkk kkwkk kkkkk", "kkkkk kkkkk kkkkk kkkkk"},
        {"median keeps edges", median, "kkwww kkwww kkwww kkwww", "kkwww kkwww kkwww kkwww"},
        {"a corner counts four times", median, "rbbbb rbbbb bbbbb bbbbb", "rbbbb bbbbb bbbbb bbbbb"},
    };
    const auto packed = [](std::string letters) {
        std::erase(letters, ' ');
        return picture(letters);
    };
    for (const auto& row : rows) {
        ImageDocument document;
        loadPicture(document, packed(row.before), 5, 4);
        row.run(document, 1);
        EXPECT_EQ(pictureOf(document), packed(row.after)) << row.name;
    }
}

TEST(RankFilters, TakeEachChannelForItself) {
    ImageDocument document;
    loadPicture(document, picture("rbrbrbrbr"), 3, 3);
    const Argb centres[] = {0xFF000000u, 0xFFFF00FFu, 0xFFFF0000u};
    for (std::size_t i = 0; i < 3; ++i) {
        kFilters[i].run(document, 1);
        EXPECT_EQ(pictureOf(document)[4], centres[i]) << kFilters[i].name;
        document.undo();
    }
}

TEST(RankFilters, AreOneStepThatMakesThePictureOpaque) {
    const auto before = test::randomPicture(7 * 5, 3u);
    auto opaque = before;
    for (Argb& word : opaque) word |= 0xFF000000u;
    for (const auto& filter : kFilters) {
        ImageDocument document;
        loadPicture(document, before, 7, 5);
        filter.run(document, 0);
        EXPECT_EQ(pictureOf(document), opaque) << filter.name;
        filter.run(document, INT_MAX);
        EXPECT_TRUE(document.currentSurface()->isOpaque()) << filter.name;
        document.undo();
        document.undo();
        EXPECT_EQ(pictureOf(document), before) << filter.name;
        EXPECT_FALSE(document.undoEnabled()) << filter.name;
    }
}

TEST(RankFilters, RefuseNegativeRadii) {
    const auto before = test::randomPicture(7 * 5, 3u);
    for (const auto& filter : kFilters) {
        for (int radius : {-1, -2, INT_MIN}) {
            ImageDocument document, empty;
            loadPicture(document, before, 7, 5);
            filter.run(document, radius);
            EXPECT_EQ(pictureOf(document), before) << filter.name;
            EXPECT_FALSE(document.modified || document.undoEnabled()) << filter.name;
            filter.run(empty, 1);
            EXPECT_TRUE(empty.isEmpty() && !empty.modified) << filter.name;
        }
    }
}

/// Large pictures are written around the caches. Cut into bands that overlap by the radius, they are not.
TEST(RankFilters, DoTheSameToLargePicturesAndToTheirParts) {
    constexpr int kWidth = 2801, kHeight = 2401, kBand = 800;
    const auto picture = test::randomPicture(std::size_t(kWidth) * kHeight, 9u);
    const PixelView source{picture.data(), kWidth, kHeight, kWidth};
    const struct {
        const char* name;
        void (*run)(PixelView, MutablePixelView, int);
        int radius;
    } rows[] = {
        {"minimum",
         [](PixelView s, MutablePixelView t, int radius) { windowExtreme(Extreme::Minimum, s, t, radius); },
         2},
        {"maximum",
         [](PixelView s, MutablePixelView t, int radius) { windowExtreme(Extreme::Maximum, s, t, radius); },
         20},
        {"median, small", medianOfWindow, 1},
        {"median, large", medianOfWindow, 9},
    };
    std::vector<Argb> whole(picture.size()), part(picture.size());
    for (const auto& row : rows) {
        row.run(source, {whole.data(), kWidth, kHeight, kWidth}, row.radius);
        for (int y = 0; y < kHeight; y += kBand) {
            const int top = std::max(y - row.radius, 0);
            const int bottom = std::min(y + kBand + row.radius, kHeight);
            const MutablePixelView band{part.data(), kWidth, bottom - top, kWidth};
            row.run({source.row(top), kWidth, bottom - top, kWidth}, band, row.radius);
            const int count = std::min(kBand, kHeight - y);
            const Argb* const expected = band.row(y - top);
            EXPECT_TRUE(std::equal(expected, expected + count * kWidth, whole.data() + y * kWidth))
                << row.name << ", rows from " << y;
        }
    }
}

}  // namespace
}  // namespace orvane
