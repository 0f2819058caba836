// Turning and scaling, each with its history step, against OpenCV.
//
//     geometry_bench [width height [rows that contain this]]

#include <cstdlib>
#include <cstring>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "filters/invert.h"
#include "geometry/rotate_flip.h"
#include "geometry/scale_image.h"
#include "support/photograph.h"
#include "support/pictures.h"
#include "support/ratio_timer.h"

namespace orvane {
namespace {

struct Comparison {
    const char* name;
    std::function<void(ImageDocument&)> ours;
    std::function<void(const cv::Mat&, cv::Mat&)> theirs;
    bool isExact;  // else within a level or two
};

std::function<void(ImageDocument&)> turned(int type) {
    return [=](ImageDocument& document) { rotateFlip(document, type); };
}

std::function<void(ImageDocument&)> scaled(double factor) {
    return [=](ImageDocument& document) { scaleImage(document, factor, factor); };
}

std::function<void(const cv::Mat&, cv::Mat&)> resized(double factor, int interpolation) {
    return [=](const cv::Mat& source, cv::Mat& target) {
        cv::resize(source, target, {}, factor, factor, interpolation);
    };
}

const Comparison kComparisons[] = {
    {"RotateFlip 1 : rotate", turned(1),
     [](const cv::Mat& s, cv::Mat& t) { cv::rotate(s, t, cv::ROTATE_90_CLOCKWISE); }, true},
    {"RotateFlip 3 : rotate", turned(3),
     [](const cv::Mat& s, cv::Mat& t) { cv::rotate(s, t, cv::ROTATE_90_COUNTERCLOCKWISE); }, true},
    {"RotateFlip 5 : transpose", turned(5), [](const cv::Mat& s, cv::Mat& t) { cv::transpose(s, t); }, true},
    {"RotateFlip 2 : rotate", turned(2),
     [](const cv::Mat& s, cv::Mat& t) { cv::rotate(s, t, cv::ROTATE_180); }, true},
    {"RotateFlip 4 : flip", turned(4), [](const cv::Mat& s, cv::Mat& t) { cv::flip(s, t, 1); }, true},
    {"RotateFlip 6 : flip", turned(6), [](const cv::Mat& s, cv::Mat& t) { cv::flip(s, t, 0); }, true},
    {"ScaleImage 0.5 : resize, area", scaled(0.5), resized(0.5, cv::INTER_AREA), false},
    {"ScaleImage 0.37 : resize, area", scaled(0.37), resized(0.37, cv::INTER_AREA), false},
    {"ScaleImage 2.0 : resize, linear", scaled(2.0), resized(2.0, cv::INTER_LINEAR), false},
    {"ScaleImage 1.7 : resize, linear", scaled(1.7), resized(1.7, cv::INTER_LINEAR), false},
};

bool isRight(const Comparison& comparison, ImageDocument& document, const cv::Mat& source) {
    cv::Mat theirs;
    comparison.theirs(source, theirs);
    comparison.ours(document);
    const PixelView ours = document.currentPixels();
    const cv::Mat mine(ours.height, ours.width, CV_8UC4, const_cast<Argb*>(ours.pixels));
    const bool same =
        theirs.size() == mine.size() && cv::norm(mine, theirs, cv::NORM_INF) <= (comparison.isExact ? 0 : 2);
    document.undo();
    return same;
}

int run(int width, int height, const char* part) {
    auto pixels = bench::photograph(width, height);
    cv::Mat source(height, width, CV_8UC4, pixels.data());
    ImageDocument document;
    test::loadPicture(document, pixels, width, height);
    for (int i = 0; i < 2 * HistoryStack::kHistorySlots; ++i) invert(document);

    std::printf("%d x %d\n", width, height);
    bench::printRatioHeader();
    for (const Comparison& comparison : kComparisons) {
        if (part != nullptr && std::strstr(comparison.name, part) == nullptr) continue;
        if (!isRight(comparison, document, source)) {
            std::printf("%s: wrong result\n", comparison.name);
            return 1;
        }
        cv::Mat target;
        // Each call starts from the same picture: a step is taken back at no cost.
        const auto ours = [&] {
            comparison.ours(document);
            document.undo();
        };
        bench::printRatioRow(
            comparison.name,
            bench::measureRatio(ours, [&] { comparison.theirs(source, target); }, {5, 3, 1.0}));
    }
    return 0;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) {
    cv::setNumThreads(1);
    const int width = argc > 2 ? std::atoi(argv[1]) : 4000, height = argc > 2 ? std::atoi(argv[2]) : 3000;
    return orvane::run(width, height, argc > 3 ? argv[3] : nullptr);
}
