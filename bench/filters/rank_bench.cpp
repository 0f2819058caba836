// The rank filters, each with its history step, against OpenCV's filters of the same windows.
//
//     rank_bench [width height [instruction set [rows that contain this]]]

#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "filters/maximal.h"
#include "filters/median.h"
#include "filters/minimal.h"
#include "filters/rank_reference.h"
#include "support/filter_bench.h"

namespace orvane {
namespace {

struct RankComparison {
    const char* name;
    void (*ours)(ImageDocument&, int) noexcept;
    std::uint64_t (*rank)(std::uint64_t);
    void (*theirs)(const cv::Mat&, cv::Mat&, int);
    std::vector<int> radii;
};

cv::Mat square(int radius) {
    return cv::getStructuringElement(cv::MORPH_RECT, {2 * radius + 1, 2 * radius + 1});
}

const RankComparison kComparisons[] = {
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

std::vector<bench::FilterComparison> comparisons(const cv::Mat& source, cv::Mat& target) {
    std::vector<bench::FilterComparison> rows;
    for (const RankComparison& comparison : kComparisons) {
        for (int radius : comparison.radii) {
            rows.push_back({std::string(comparison.name) + ", radius " + std::to_string(radius),
                            [=](ImageDocument& d) { comparison.ours(d, radius); },
                            [=](const reference::Picture& p) {
                                return reference::rankFilter(p.pixels, p.width, p.height, radius,
                                                             comparison.rank);
                            },
                            [=, &source, &target] { comparison.theirs(source, target, radius); }});
        }
    }
    return rows;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) { return orvane::bench::runFilterBench(argc, argv, orvane::comparisons); }
