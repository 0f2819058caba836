#include <gtest/gtest.h>

#include <climits>

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

}  // namespace
}  // namespace orvane
