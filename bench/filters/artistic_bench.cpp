// The artistic filters, each with its history step, against the OpenCV operations that come closest.
//
//     artistic_bench [width height [instruction set [rows that contain this]]]

#include <cmath>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "filters/aquarelle.h"
#include "filters/artistic_reference.h"
#include "filters/diffuse.h"
#include "filters/focal_bw.h"
#include "filters/glow.h"
#include "filters/glowing_edge.h"
#include "filters/mosaic.h"
#include "filters/soft_focus.h"
#include "support/filter_bench.h"

namespace orvane {
namespace {

using reference::Picture;

using Comparison = bench::FilterComparison;

/// Weights that fall off with the distance.
cv::Mat discKernel(int radius) {
    cv::Mat kernel(2 * radius + 1, 2 * radius + 1, CV_32F, cv::Scalar::all(0));
    for (int y = -radius; y <= radius; ++y) {
        for (int x = -radius; x <= radius; ++x) {
            const int d = int(std::sqrt(x * x + y * y));
            if (d >= 1 && d <= radius) kernel.at<float>(y + radius, x + radius) = 0.01f / float(d);
        }
    }
    return kernel;
}

std::vector<Comparison> comparisons(const cv::Mat& source, cv::Mat& target) {
    std::vector<Comparison> rows;
    const auto add = [&rows](std::string name, auto ours, auto expected, auto theirs) {
        rows.push_back({std::move(name), ours, expected, theirs});
    };

    // Whole tiles only, which is where their area mean is quickest.
    const cv::Size tiles(source.cols / 21, source.rows / 21);
    for (int type : {0, 1}) {
        add(
            "Mosaic " + std::to_string(type) + " 10 : resize down and up",
            [type](ImageDocument& d) { mosaic(d, type, 10); },
            [type](const Picture& p) { return reference::mosaic(p, type, 10); },
            [&source, &target, tiles, type, small = std::make_shared<cv::Mat>()] {
                const cv::Mat tiled = source({0, 0, tiles.width * 21, tiles.height * 21});
                cv::resize(tiled, *small, tiles, 0, 0, type == 0 ? cv::INTER_NEAREST : cv::INTER_AREA);
                cv::resize(*small, target, source.size(), 0, 0, cv::INTER_NEAREST);
            });
    }
    add(
        "Aquarelle 3 : medianBlur + 2 filter2D", [](ImageDocument& d) { aquarelle(d, 3); },
        [](const Picture& p) { return reference::aquarelle(p, 3); },
        [&source, &target, painted = std::make_shared<cv::Mat>()] {
            const cv::Mat kernel = (cv::Mat_<float>(3, 3) << -0.25, 0, -0.25, 0, 2, 0, -0.25, 0, -0.25);
            cv::medianBlur(source, target, 7);
            cv::filter2D(target, *painted, -1, kernel, {-1, -1}, 0, cv::BORDER_REPLICATE);
            cv::filter2D(*painted, target, -1, kernel, {-1, -1}, 0, cv::BORDER_REPLICATE);
        });
    for (const auto& [radius, rim] : {std::pair(1, 1), std::pair(600, 600), std::pair(1, 3000)}) {
        add(
            "SoftFocus 5 " + std::to_string(radius) + " " + std::to_string(rim) + " : 5 blur",
            [=, &source](ImageDocument& d) {
                softFocus(d, 5, radius, rim, source.cols / 2, source.rows / 2);
            },
            [=, &source](const Picture& p) {
                return reference::softFocus(p, 5, radius, rim, source.cols / 2, source.rows / 2);
            },
            [&source, &target, blurred = std::make_shared<cv::Mat>()] {
                cv::blur(source, target, {3, 3}, {-1, -1}, cv::BORDER_REPLICATE);
                for (int pass = 0; pass < 2; ++pass) {
                    cv::blur(target, *blurred, {3, 3}, {-1, -1}, cv::BORDER_REPLICATE);
                    cv::blur(*blurred, target, {3, 3}, {-1, -1}, cv::BORDER_REPLICATE);
                }
            });
    }
    // A quarter of the picture on the rim, then all of it.
    for (const auto& [radius, rim] : {std::pair(600, 600), std::pair(1, 3000)}) {
        add(
            "FocalBW " + std::to_string(radius) + " " + std::to_string(rim) + " : 2 cvtColor + addWeighted",
            [=, &source](ImageDocument& d) { focalBW(d, radius, rim, source.cols / 2, source.rows / 2); },
            [=, &source](const Picture& p) {
                return reference::focalBW(p, radius, rim, source.cols / 2, source.rows / 2);
            },
            [&source, &target, planes = std::make_shared<cv::Mat[]>(2)] {
                cv::cvtColor(source, planes[0], cv::COLOR_BGRA2GRAY);
                cv::cvtColor(planes[0], planes[1], cv::COLOR_GRAY2BGRA);
                cv::addWeighted(source, 0.4, planes[1], 0.6, 0, target);
            });
    }
    add(
        "Diffuse 5 : randu + remap",
        [](ImageDocument& d) {
            SharedRandomStream::giveBack(RandomStream());
            diffuse(d, 5);
        },
        [](const Picture& p) {
            RandomStream stream;
            return reference::diffuse(p, 5, stream);
        },
        [&source, &target, places = std::make_shared<cv::Mat>(source.size(), CV_16SC2)] {
            cv::randu(*places, cv::Scalar::all(-5), cv::Scalar::all(6));
            for (int y = 0; y < places->rows; ++y) {
                auto* const row = places->ptr<cv::Vec2s>(y);
                for (int x = 0; x < places->cols; ++x) row[x] += cv::Vec2s(short(x), short(y));
            }
            cv::remap(source, target, *places, cv::Mat(), cv::INTER_NEAREST, cv::BORDER_REPLICATE);
        });
    // One plane of light, spread and added to all channels. Of the photograph's pixels all shine from level 1
    // on, 43 % from 100, 0.5 % from 190, 0.16 % from 205, and none from 256.
    const auto spread = [&source, &target](int level, int radius) {
        return
            [&source, &target, level, kernel = discKernel(radius), planes = std::make_shared<cv::Mat[]>(4)] {
                cv::cvtColor(source, planes[0], cv::COLOR_BGRA2GRAY);
                cv::threshold(planes[0], planes[1], level - 1, 0, cv::THRESH_TOZERO);
                cv::filter2D(planes[1], planes[2], CV_8U, kernel, {-1, -1}, 0, cv::BORDER_CONSTANT);
                cv::cvtColor(planes[2], planes[3], cv::COLOR_GRAY2BGRA);
                cv::add(source, planes[3], target);
            };
    };
    for (const auto& [level, radius] :
         {std::pair(1, 3), std::pair(1, 10), std::pair(1, 20), std::pair(190, 10), std::pair(205, 10),
          std::pair(256, 10), std::pair(205, 50), std::pair(1, 100), std::pair(100, 1000)}) {
        add(
            "Glow " + std::to_string(level) + " " + std::to_string(radius) + " 5 : filter2D + add",
            [=](ImageDocument& d) { glow(d, level, radius, 5); },
            [=](const Picture& p) { return reference::glow(p, level, radius, 5); }, spread(level, radius));
    }
    add(
        "GlowingEdge 100 10 5 : filter2D + add", [](ImageDocument& d) { glowingEdge(d, 100, 10, 5); },
        [](const Picture& p) { return reference::glowingEdge(p, 100, 10, 5); }, spread(100, 10));
    return rows;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) { return orvane::bench::runFilterBench(argc, argv, orvane::comparisons); }
