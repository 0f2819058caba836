// The colour point operations, each with its history step, against what OpenCV offers for the same purpose,
// writing to memory that has been touched before.
//
//     point_operations_bench [width height [instruction set [rows that contain this]]]

#include <algorithm>
#include <cmath>
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
#include "support/filter_bench.h"

namespace orvane {
namespace {

using reference::Picture;
using Comparison = bench::FilterComparison;

/// A definition that knows pixels only, for a picture.
template <class Definition>
auto pixelwise(Definition definition) {
    return [definition](const Picture& p) { return definition(p.pixels); };
}

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
        return [=](const Picture& p) {
            RandomStream stream(99u);
            return reference::noise(p.pixels, type, level, stream);
        };
    };

    return {
        {"Invert : memcpy", invert, pixelwise(reference::invert),
         [&source, &target] { std::memcpy(target.data, source.data, source.total() * source.elemSize()); }},
        {"Invert : bitwise_not", invert, pixelwise(reference::invert),
         [&source, &target] { cv::bitwise_not(source, target); }},
        {"Brightness : add", [](ImageDocument& d) { brightness(d, 20, -30, 40); },
         [](const Picture& p) { return reference::brightness(p.pixels, 20, -30, 40); },
         [&source, &target] { cv::add(source, cv::Scalar(40, -30, 20, 255), target); }},
        {"Contrast : convertTo", [](ImageDocument& d) { contrast(d, 130); },
         [](const Picture& p) { return reference::contrast(p.pixels, 130); },
         [&source, &target] { source.convertTo(target, -1, 1.3, -38); }},
        {"Lightness : LUT", [](ImageDocument& d) { lightness(d, 110, 95, 130); },
         [](const Picture& p) { return reference::lightness(p.pixels, 110, 95, 130); },
         [&source, &target, table = lookupTable(1.3, 0.95, 1.1)] { cv::LUT(source, table, target); }},
        {"Lightness : transform", [](ImageDocument& d) { lightness(d, 110, 95, 130); },
         [](const Picture& p) { return reference::lightness(p.pixels, 110, 95, 130); },
         [&source, &target] {
             cv::transform(source, target, cv::Matx44f(cv::Matx44f::diag({1.3f, 0.95f, 1.1f, 1.0f})));
         }},
        {"Temperature : LUT", [](ImageDocument& d) { temperature(d, 25); },
         [](const Picture& p) { return reference::temperature(p.pixels, 25); },
         [&source, &target, table = lookupTable(0.75, 1.0, 1.25)] { cv::LUT(source, table, target); }},
        {"Gamma : LUT", [](ImageDocument& d) { gamma(d, 2.2); },
         [](const Picture& p) { return reference::gamma(p.pixels, 2.2); },
         [&source, &target, powerTable] { cv::LUT(source, powerTable, target); }},
        {"Autocolor : reduce + LUT", autocolor, pixelwise(reference::autocolor),
         [&source, &target, scratch, table = lookupTable(1.1, 1.05, 1.02)] {
             cv::reduce(source, *scratch, 0, cv::REDUCE_MIN);
             cv::reduce(source, *scratch, 0, cv::REDUCE_MAX);
             cv::LUT(source, table, target);
         }},
        {"Desaturate : cvtColor twice", desaturate, pixelwise(reference::desaturate),
         [&source, &target, scratch] {
             cv::cvtColor(source, *scratch, cv::COLOR_BGRA2GRAY);
             cv::cvtColor(*scratch, target, cv::COLOR_GRAY2BGRA);
         }},
        {"Saturate : transform", [](ImageDocument& d) { saturate(d, 150); },
         [](const Picture& p) { return reference::saturate(p.pixels, 150); },
         [&source, &target, stronger] { cv::transform(source, target, stronger); }},
        {"Sepia : transform", sepia, [](const Picture& p) { return reference::hue(p.pixels, 160, 133, 107); },
         [&source, &target, brown] { cv::transform(source, target, brown); }},
        {"Hue : cvtColor twice + LUT", [](ImageDocument& d) { hue(d, 200, 30, 90); },
         [](const Picture& p) { return reference::hue(p.pixels, 200, 30, 90); },
         [&source, &target, scratch, scratch2, table = lookupTable(0.4, 0.2, 1.0)] {
             cv::cvtColor(source, *scratch, cv::COLOR_BGRA2GRAY);
             cv::cvtColor(*scratch, *scratch2, cv::COLOR_GRAY2BGRA);
             cv::LUT(*scratch2, table, target);
         }},
        {"Monochrome : cvtColor, threshold", [](ImageDocument& d) { monochrome(d, 127, ~0u, 0xFF000000u); },
         [](const Picture& p) { return reference::monochrome(p.pixels, 127, ~0u, 0xFF000000u); },
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

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) { return orvane::bench::runFilterBench(argc, argv, orvane::comparisons); }
