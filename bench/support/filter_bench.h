#pragma once

#include <hwy/targets.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "document/image_document.h"
#include "filters/invert.h"
#include "filters/reference_picture.h"
#include "support/photograph.h"
#include "support/pictures.h"
#include "support/ratio_timer.h"

/// What the benchmarks of the filters have in common: every operation, with its history step, against what
/// OpenCV offers for the same purpose, on one thread and in memory that has been touched before.
///
///     NAME_bench [width height [instruction set [rows that contain this]]]
namespace orvane::bench {

struct FilterComparison {
    std::string name;  ///< "ours : theirs"
    std::function<void(ImageDocument&)> ours;
    /// What ours must give; none where there is nothing to compare.
    std::function<std::vector<Argb>(const reference::Picture&)> expected;
    std::function<void()> theirs;
    bool isStep = true;  ///< ours adds a history step, which is taken back after each call
};

/// The rows for a source picture; theirs write to the target, which has the same size.
using FilterComparisons =
    std::function<std::vector<FilterComparison>(const cv::Mat& source, cv::Mat& target)>;

inline bool isRight(const FilterComparison& comparison) {
    if (!comparison.expected) return true;
    const reference::Picture picture{83, 71, test::randomPicture(83 * 71, 11u)};
    ImageDocument document;
    test::loadPicture(document, picture.pixels, picture.width, picture.height);
    comparison.ours(document);
    return test::pictureOf(document) == comparison.expected(picture);
}

/// A document with a full history, so that the memory of every further step has been used before.
inline ImageDocument documentInUse(const std::vector<Argb>& pixels, int width, int height) {
    ImageDocument document;
    test::loadPicture(document, pixels, width, height);
    for (int i = 0; i < 2 * HistoryStack::kHistorySlots; ++i) invert(document);
    return document;
}

/// Checks and times every row; the result is the program's exit status.
inline int runFilterBench(int argc, char** argv, const FilterComparisons& comparisons) {
    cv::setNumThreads(1);
    const int width = argc > 2 ? std::atoi(argv[1]) : 4000, height = argc > 2 ? std::atoi(argv[2]) : 3000;
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        if (argc > 3 && std::strcmp(hwy::TargetName(target), argv[3]) == 0) {
            hwy::SetSupportedTargetsForTest(target);
            break;
        }
    }
    const char* part = argc > 4 ? argv[4] : nullptr;

    auto pixels = photograph(width, height);
    const cv::Mat source(height, width, CV_8UC4, pixels.data());
    cv::Mat target(height, width, CV_8UC4, cv::Scalar::all(1));
    ImageDocument document = documentInUse(pixels, width, height);

    std::printf("%d x %d, %s\n", width, height,
                hwy::TargetName(hwy::SupportedTargets() & -hwy::SupportedTargets()));
    printRatioHeader();
    for (const FilterComparison& comparison : comparisons(source, target)) {
        if (part != nullptr && comparison.name.find(part) == std::string::npos) continue;
        if (!isRight(comparison)) {
            std::printf("%s: wrong result\n", comparison.name.c_str());
            return 1;
        }
        // Each call starts from the same picture: a step is taken back at no cost.
        const auto ours = [&] {
            comparison.ours(document);
            if (comparison.isStep) document.undo();
        };
        printRatioRow(comparison.name.c_str(), measureRatio(ours, comparison.theirs, {3, 3, 1.0}));
    }
    return 0;
}

}  // namespace orvane::bench
