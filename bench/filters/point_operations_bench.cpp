// The colour point operations, each with its history step, against what OpenCV offers for the same purpose,
// writing to memory that has been touched before.
//
//     point_operations_bench [width height [instruction set]]

#include <hwy/targets.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "filters/autocolor.h"
#include "filters/brightness.h"
#include "filters/contrast.h"
#include "filters/desaturate.h"
#include "filters/gamma.h"
#include "filters/hue.h"
#include "filters/invert.h"
#include "filters/lightness.h"
#include "filters/monochrome.h"
#include "filters/noise.h"
#include "filters/point_reference.h"
#include "filters/saturate.h"
#include "filters/temperature.h"
#include "support/pictures.h"
#include "support/ratio_timer.h"

namespace orvane {
namespace {

using reference::Pixels;

/// Soft colour gradients with a little noise, opaque: the statistics of a photograph.
Pixels photograph(int width, int height) {
    Pixels pixels(std::size_t(width) * std::size_t(height));
    RandomStream random(7u);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto channel = [&](double fx, double fy) {
                const double wave = 128 + 100 * std::sin(x * fx) * std::cos(y * fy) + random.next() % 16;
                return unsigned(wave);
            };
            const unsigned red = channel(0.0041, 0.0023), green = channel(0.0017, 0.0052);
            pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)] =
                makeOpaque(red, green, channel(0.0029, 0.0031));
        }
    }
    return pixels;
}

struct Comparison {
    const char* name;
    std::function<void(ImageDocument&)> ours;
    std::function<Pixels(const Pixels&)> expected;
    std::function<void()> theirs;
};

/// A table for cv::LUT that maps channel values, alpha unchanged.
cv::Mat lookupTable(double blue, double green, double red) {
    cv::Mat table(1, 256, CV_8UC4);
    for (int i = 0; i < 256; ++i) {
        table.at<cv::Vec4b>(i) = {cv::saturate_cast<uchar>(i * blue), cv::saturate_cast<uchar>(i * green),
                                  cv::saturate_cast<uchar>(i * red), uchar(i)};
    }
    return table;
}

std::vector<Comparison> comparisons(const cv::Mat& source, cv::Mat& target) {
    const auto scratch = std::make_shared<cv::Mat>(), scratch2 = std::make_shared<cv::Mat>();
    const cv::Mat powerTable = [] {
        cv::Mat table(1, 256, CV_8U);
        for (int i = 0; i < 256; ++i) table.at<uchar>(i) = uchar(255 * std::pow(i / 255.0, 2.2));
        return table;
    }();
    const cv::Matx44f stronger(1.46f, -0.36f, -0.1f, 0, -0.04f, 1.14f, -0.1f, 0, -0.04f, -0.36f, 1.4f, 0, 0,
                               0, 0, 1);
    const cv::Matx44f brown(0.13f, 0.53f, 0.27f, 0, 0.17f, 0.69f, 0.35f, 0, 0.19f, 0.77f, 0.39f, 0, 0, 0, 0,
                            1);

    const auto seeded = [](int type, int level) {
        return [=](ImageDocument& document) {
            SharedRandomStream::giveBack(RandomStream(99u));
            noise(document, type, level);
        };
    };
    const auto seededReference = [](int type, int level) {
        return [=](const Pixels& pixels) {
            RandomStream stream(99u);
            return reference::noise(pixels, type, level, stream);
        };
    };

    return {
        {"Invert : memcpy", invert, reference::invert,
         [&source, &target] { std::memcpy(target.data, source.data, source.total() * source.elemSize()); }},
        {"Invert : bitwise_not", invert, reference::invert,
         [&source, &target] { cv::bitwise_not(source, target); }},
        {"Brightness : add", [](ImageDocument& d) { brightness(d, 20, -30, 40); },
         [](const Pixels& p) { return reference::brightness(p, 20, -30, 40); },
         [&source, &target] { cv::add(source, cv::Scalar(40, -30, 20, 255), target); }},
        {"Contrast : convertTo", [](ImageDocument& d) { contrast(d, 130); },
         [](const Pixels& p) { return reference::contrast(p, 130); },
         [&source, &target] { source.convertTo(target, -1, 1.3, -38); }},
        {"Lightness : LUT", [](ImageDocument& d) { lightness(d, 110, 95, 130); },
         [](const Pixels& p) { return reference::lightness(p, 110, 95, 130); },
         [&source, &target, table = lookupTable(1.3, 0.95, 1.1)] { cv::LUT(source, table, target); }},
        {"Lightness : transform", [](ImageDocument& d) { lightness(d, 110, 95, 130); },
         [](const Pixels& p) { return reference::lightness(p, 110, 95, 130); },
         [&source, &target] {
             cv::transform(source, target, cv::Matx44f(cv::Matx44f::diag({1.3f, 0.95f, 1.1f, 1.0f})));
         }},
        {"Temperature : LUT", [](ImageDocument& d) { temperature(d, 25); },
         [](const Pixels& p) { return reference::temperature(p, 25); },
         [&source, &target, table = lookupTable(0.75, 1.0, 1.25)] { cv::LUT(source, table, target); }},
        {"Gamma : LUT", [](ImageDocument& d) { gamma(d, 2.2); },
         [](const Pixels& p) { return reference::gamma(p, 2.2); },
         [&source, &target, powerTable] { cv::LUT(source, powerTable, target); }},
        {"Autocolor : reduce + LUT", autocolor, reference::autocolor,
         [&source, &target, scratch, table = lookupTable(1.1, 1.05, 1.02)] {
             cv::reduce(source, *scratch, 0, cv::REDUCE_MIN);
             cv::reduce(source, *scratch, 0, cv::REDUCE_MAX);
             cv::LUT(source, table, target);
         }},
        {"Desaturate : cvtColor twice", desaturate, reference::desaturate,
         [&source, &target, scratch] {
             cv::cvtColor(source, *scratch, cv::COLOR_BGRA2GRAY);
             cv::cvtColor(*scratch, target, cv::COLOR_GRAY2BGRA);
         }},
        {"Saturate : transform", [](ImageDocument& d) { saturate(d, 150); },
         [](const Pixels& p) { return reference::saturate(p, 150); },
         [&source, &target, stronger] { cv::transform(source, target, stronger); }},
        {"Sepia : transform", sepia, [](const Pixels& p) { return reference::hue(p, 160, 133, 107); },
         [&source, &target, brown] { cv::transform(source, target, brown); }},
        {"Hue : cvtColor twice + LUT", [](ImageDocument& d) { hue(d, 200, 30, 90); },
         [](const Pixels& p) { return reference::hue(p, 200, 30, 90); },
         [&source, &target, scratch, scratch2, table = lookupTable(0.4, 0.2, 1.0)] {
             cv::cvtColor(source, *scratch, cv::COLOR_BGRA2GRAY);
             cv::cvtColor(*scratch, *scratch2, cv::COLOR_GRAY2BGRA);
             cv::LUT(*scratch2, table, target);
         }},
        {"Monochrome : cvtColor, threshold", [](ImageDocument& d) { monochrome(d, 127, ~0u, 0xFF000000u); },
         [](const Pixels& p) { return reference::monochrome(p, 127, ~0u, 0xFF000000u); },
         [&source, &target, scratch, scratch2] {
             cv::cvtColor(source, *scratch, cv::COLOR_BGRA2GRAY);
             cv::threshold(*scratch, *scratch2, 127, 255, cv::THRESH_BINARY);
             cv::cvtColor(*scratch2, target, cv::COLOR_GRAY2BGRA);
         }},
        {"Noise, grey : randu, cvtColor, add", seeded(0, 30), seededReference(0, 30),
         [&source, &target, scratch, scratch2] {
             scratch->create(source.size(), CV_8U);
             cv::randu(*scratch, 0, 31);
             cv::cvtColor(*scratch, *scratch2, cv::COLOR_GRAY2BGRA);
             cv::add(source, *scratch2, target);
         }},
        {"Noise, colour : randu, add", seeded(1, 30), seededReference(1, 30),
         [&source, &target, scratch] {
             scratch->create(source.size(), CV_8UC4);
             cv::randu(*scratch, 0, 31);
             cv::add(source, *scratch, target);
         }},
    };
}

int run(int width, int height) {
    const Pixels pixels = photograph(width, height);
    const cv::Mat source(height, width, CV_8UC4, const_cast<Argb*>(pixels.data()));
    cv::Mat target(height, width, CV_8UC4, cv::Scalar::all(1));

    ImageDocument document;
    test::loadPicture(document, pixels, width, height);
    for (int i = 0; i < HistoryStack::kHistorySlots; ++i) invert(document);

    std::printf("%d x %d, %s\n", width, height, hwy::TargetName(hwy::SupportedAndGeneratedTargets().front()));
    bench::printRatioHeader();
    for (const Comparison& comparison : comparisons(source, target)) {
        const Pixels before = test::pictureOf(document);
        comparison.ours(document);
        if (test::pictureOf(document) != comparison.expected(before)) {
            std::printf("%s: wrong result\n", comparison.name);
            return 1;
        }
        document.undo();
        // Each call starts from the same picture: a step is taken back at no cost, its memory is used again.
        bench::printRatioRow(comparison.name, bench::measureRatio(
                                                  [&] {
                                                      comparison.ours(document);
                                                      document.undo();
                                                  },
                                                  comparison.theirs));
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
    return orvane::run(width, height);
}
