// The rank filters, each with its history step, against OpenCV's filters of the same windows.
//
//     rank_bench [width height [instruction set [rows that contain this]]]

#include <hwy/targets.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "filters/invert.h"
#include "filters/maximal.h"
#include "filters/median.h"
#include "filters/minimal.h"
#include "filters/rank_reference.h"
#include "support/photograph.h"
#include "support/pictures.h"
#include "support/ratio_timer.h"

namespace orvane {
namespace {

struct Comparison {
    const char* name;
    void (*ours)(ImageDocument&, int);
    std::uint64_t (*rank)(std::uint64_t);
    void (*theirs)(const cv::Mat&, cv::Mat&, int);
    std::vector<int> radii;
};

cv::Mat square(int radius) {
    return cv::getStructuringElement(cv::MORPH_RECT, {2 * radius + 1, 2 * radius + 1});
}

const Comparison kComparisons[] = {
    {"Minimal : erode",
     minimal,
     reference::lowestRank,
     [](const cv::Mat& source, cv::Mat& target, int radius) { cv::erode(source, target, square(radius)); },
     {1, 3, 10, 25}},
    {"Maximal : dilate",
     maximal,
     reference::highestRank,
     [](const cv::Mat& source, cv::Mat& target, int radius) { cv::dilate(source, target, square(radius)); },
     {1, 3, 10, 25}},
    {"Median : medianBlur",
     median,
     reference::middleRank,
     [](const cv::Mat& source, cv::Mat& target, int radius) {
         cv::medianBlur(source, target, 2 * radius + 1);
     },
     {1, 2, 3, 4, 5, 6, 10, 25, 60, 127}},
};

bool isRight(const Comparison& comparison, int radius) {
    constexpr int kWidth = 83, kHeight = 71;
    const auto pixels = test::randomPicture(kWidth * kHeight, 11u);
    ImageDocument document;
    test::loadPicture(document, pixels, kWidth, kHeight);
    comparison.ours(document, radius);
    return test::pictureOf(document) ==
           reference::rankFilter(pixels, kWidth, kHeight, radius, comparison.rank);
}

int run(int width, int height, const char* part) {
    auto pixels = bench::photograph(width, height);
    const cv::Mat source(height, width, CV_8UC4, pixels.data());
    cv::Mat target(height, width, CV_8UC4, cv::Scalar::all(1));

    ImageDocument document;
    test::loadPicture(document, pixels, width, height);
    for (int i = 0; i < 2 * HistoryStack::kHistorySlots; ++i) invert(document);

    std::printf("%d x %d, %s\n", width, height,
                hwy::TargetName(hwy::SupportedTargets() & -hwy::SupportedTargets()));
    bench::printRatioHeader();
    for (const Comparison& comparison : kComparisons) {
        for (int radius : comparison.radii) {
            const std::string name = std::string(comparison.name) + ", radius " + std::to_string(radius);
            if (part != nullptr && name.find(part) == std::string::npos) continue;
            if (!isRight(comparison, radius)) {
                std::printf("%s: wrong result\n", name.c_str());
                return 1;
            }
            // Each call starts from the same picture: a step is taken back at no cost.
            const auto ours = [&] {
                comparison.ours(document, radius);
                document.undo();
            };
            const auto theirs = [&] { comparison.theirs(source, target, radius); };
            bench::printRatioRow(name.c_str(), bench::measureRatio(ours, theirs, {3, 3, 1.0}));
        }
    }
    return 0;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) {
    cv::setNumThreads(1);
    const int width = argc > 2 ? std::atoi(argv[1]) : 4000, height = argc > 2 ? std::atoi(argv[2]) : 3000;
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        if (argc > 3 && std::strcmp(hwy::TargetName(target), argv[3]) == 0) {
            hwy::SetSupportedTargetsForTest(target);
            break;
        }
    }
    return orvane::run(width, height, argc > 4 ? argv[4] : nullptr);
}
