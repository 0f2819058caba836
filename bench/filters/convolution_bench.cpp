// Histograms, automatic levels and the convolution filters, each with its history step, against what OpenCV
// offers for the same purpose, writing to memory that has been touched before.
//
//     convolution_bench [width height [instruction set [rows that contain this]]]

#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "filters/autocontrast.h"
#include "filters/autolevels.h"
#include "filters/average.h"
#include "filters/blur.h"
#include "filters/convolution_reference.h"
#include "filters/emboss.h"
#include "filters/gaussian_blur.h"
#include "filters/histograms.h"
#include "filters/laplas.h"
#include "filters/sharpen.h"
#include "filters/sharpen_edge.h"
#include "filters/smart_blur.h"
#include "filters/sobel.h"
#include "filters/user_effect.h"
#include "support/filter_bench.h"

namespace orvane {
namespace {

using reference::Picture;
using reference::Weights;

using Comparison = bench::FilterComparison;

/// The kernel as filter2D takes it, scaled by the sum of its weights.
cv::Mat kernelOf(const Weights& weights, int n) {
    cv::Mat kernel(n, n, CV_32F);
    double sum = 0;
    for (std::int32_t weight : weights) sum += weight;
    for (int i = 0; i < n * n; ++i) {
        kernel.at<float>(i % n, i / n) = float(weights[std::size_t(i)] / (sum == 0 ? 1.0 : sum));
    }
    return kernel;
}

std::vector<Comparison> comparisons(const cv::Mat& source, cv::Mat& target) {
    std::vector<Comparison> rows;
    const auto add = [&rows](std::string name, auto ours, auto expected, auto theirs) {
        rows.push_back({std::move(name), ours, expected, theirs});
    };
    const auto filter2D = [&source, &target](const Weights& weights, int n) {
        return [&source, &target, kernel = kernelOf(weights, n)] {
            cv::filter2D(source, target, -1, kernel, {-1, -1}, 0, cv::BORDER_REPLICATE);
        };
    };
    const auto count = [](const cv::Mat& picture, int channel) {
        cv::Mat counts;
        const int size = 256;
        const float range[] = {0, 256};
        const float* ranges[] = {range};
        cv::calcHist(&picture, 1, &channel, {}, counts, 1, &size, ranges);
    };
    const auto nothing = std::function<std::vector<Argb>(const Picture&)>();
    const auto query = [&rows](std::string name, auto ours, auto theirs) {
        rows.push_back({std::move(name), ours, {}, theirs, false});
    };

    query(
        "GetRHistogram : calcHist", [](ImageDocument& d) { (void)redHistogram(d); },
        [&source, count] { count(source, 2); });
    query(
        "GetLHistogram : cvtColor + calcHist", [](ImageDocument& d) { (void)lumaHistogram(d); },
        [&source, count, grey = std::make_shared<cv::Mat>()] {
            cv::cvtColor(source, *grey, cv::COLOR_BGRA2GRAY);
            count(*grey, 0);
        });
    const auto countAndMap = [&source, &target, count] {
        for (int channel = 0; channel < 3; ++channel) count(source, channel);
        static const cv::Mat table(1, 256, CV_8UC4, cv::Scalar(1, 2, 3, 4));
        cv::LUT(source, table, target);
    };
    add("Autolevels : 3 calcHist + LUT", autolevels, nothing, countAndMap);
    add("Autocontrast : 3 calcHist + LUT", autocontrast, nothing, countAndMap);

    for (int r : {1, 3, 10, 25, 50}) {
        add(
            "Blur " + std::to_string(r) + " : blur", [r](ImageDocument& d) { blur(d, r); },
            [r](const Picture& p) { return reference::blur(p, r); },
            [&source, &target, n = 2 * r + 1] {
                cv::blur(source, target, {n, n}, {-1, -1}, cv::BORDER_REPLICATE);
            });
    }
    add(
        "Average -8 1 : filter2D", [](ImageDocument& d) { average(d, -8, 1); },
        [](const Picture& p) { return reference::average(p, -8, 1); },
        filter2D({1, 1, 1, 1, -8, 1, 1, 1, 1}, 3));
    for (int r : {3, 10, 25}) {
        add(
            "GaussianBlur " + std::to_string(r) + " 1 : filter2D",
            [r](ImageDocument& d) { gaussianBlur(d, r, 1); },
            [r](const Picture& p) { return reference::gaussianBlur(p, r, 1); },
            filter2D(reference::gaussianKernel(r, 1), 2 * r + 1));
    }
    for (int r : {3, 10}) {
        add(
            "SmartBlur " + std::to_string(r) + " 40 : erode + dilate + blur",
            [r](ImageDocument& d) { smartBlur(d, r, 40); },
            [r](const Picture& p) { return reference::smartBlur(p, r, 40); },
            [&source, &target, n = 2 * r + 1] {
                const cv::Mat square = cv::getStructuringElement(cv::MORPH_RECT, {n, n});
                cv::erode(source, target, square);
                cv::dilate(source, target, square);
                cv::blur(source, target, {n, n}, {-1, -1}, cv::BORDER_REPLICATE);
            });
    }
    add("Sharpen : filter2D", sharpen, reference::sharpen, filter2D(reference::sharpenKernel(), 3));
    add(
        "SharpenEdge 30 : filter2D", [](ImageDocument& d) { sharpenEdge(d, 30); },
        [](const Picture& p) { return reference::sharpenEdge(p, 30); },
        filter2D(reference::sharpenKernel(), 3));
    add("Laplas : filter2D", laplas, reference::laplas, filter2D({0, -1, 0, -1, 4, -1, 0, -1, 0}, 3));
    for (int type : {0, 2}) {
        add(
            "Sobel " + std::to_string(type) + " : Sobel", [type](ImageDocument& d) { sobel(d, type); },
            [type](const Picture& p) { return reference::sobel(p, type); },
            [&source, &target, x = type == 0 ? 1 : 0] {
                cv::Sobel(source, target, -1, x, 1 - x, 3, 1, 0, cv::BORDER_REPLICATE);
            });
    }
    add(
        "Emboss 1 1 : filter2D", [](ImageDocument& d) { emboss(d, 1, 1); },
        [](const Picture& p) { return reference::emboss(p, 1, 1); },
        filter2D({0, 0, 0, 0, 1, 0, -1, 0, 0}, 3));
    const Weights small{1, 2, 1, 2, 5, 2, 1, 2, 2};
    const Weights large{1, 1, 2, 1, 1, 1, 3, 4, 3, 1, 2, 4, 9, 4, 2, 1, 3, 4, 3, 1, 1, 1, 2, 1, 1};
    add(
        "UserEffect 3 x 3 : filter2D", [small](ImageDocument& d) { userEffect(d, small); },
        [small](const Picture& p) { return reference::userEffect(p, small); }, filter2D(small, 3));
    add(
        "UserEffect 5 x 5 : filter2D", [large](ImageDocument& d) { userEffect(d, large); },
        [large](const Picture& p) { return reference::userEffect(p, large); }, filter2D(large, 5));
    return rows;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) { return orvane::bench::runFilterBench(argc, argv, orvane::comparisons); }
