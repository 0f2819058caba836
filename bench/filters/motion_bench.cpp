// The filters that smear and twist along paths, each with its history step, against OpenCV doing the same
// kind of work on the same picture.
//
//     motion_bench [width height [instruction set [rows that contain this]]]

#include <cmath>
#include <functional>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "filters/blur_motion.h"
#include "filters/blur_radial.h"
#include "filters/blur_zoom.h"
#include "filters/motion_reference.h"
#include "filters/twirl.h"
#include "support/filter_bench.h"

namespace orvane {
namespace {

using reference::Picture;

using Comparison = bench::FilterComparison;

/// To polar coordinates, a box along angle or radius, and back.
class PolarBlur {
 public:
    PolarBlur(const cv::Mat& source, cv::Mat& target, cv::Size window)
        : source_(source), target_(target), window_(window) {}

    void operator()() {
        const cv::Point2f centre(float(source_.cols / 2), float(source_.rows / 2));
        const double radius = std::hypot(centre.x, centre.y);
        // As many polar pixels as the picture has.
        const cv::Size size(int(radius), int(double(source_.total()) / radius));
        cv::warpPolar(source_, *polar_, size, centre, radius, cv::INTER_LINEAR);
        cv::blur(*polar_, *blurred_, window_);
        cv::warpPolar(*blurred_, target_, source_.size(), centre, radius,
                      cv::INTER_LINEAR | cv::WARP_INVERSE_MAP);
    }

 private:
    cv::Mat source_;
    cv::Mat& target_;
    cv::Size window_;
    std::shared_ptr<cv::Mat> polar_ = std::make_shared<cv::Mat>(), blurred_ = std::make_shared<cv::Mat>();
};

/// Polar coordinates of a twisted picture turned into a map, and the map applied. What does not depend on the
/// strength of the twist is prepared beforehand.
class MapTwist {
 public:
    MapTwist(const cv::Mat& source, cv::Mat& target, double degrees) : source_(source), target_(target) {
        const double cx = source.cols / 2, cy = source.rows / 2, farthest = std::hypot(cx, cy);
        radius_->create(source.size(), CV_32F);
        angle_->create(source.size(), CV_32F);
        for (int y = 0; y < source.rows; ++y) {
            for (int x = 0; x < source.cols; ++x) {
                const double r = std::hypot(x - cx, y - cy);
                radius_->at<float>(y, x) = float(r);
                angle_->at<float>(y, x) =
                    float(std::atan2(y - cy, x - cx) + r / farthest * degrees * CV_PI / 180);
            }
        }
    }

    void operator()() {
        cv::polarToCart(*radius_, *angle_, *x_, *y_);
        cv::add(*x_, cv::Scalar(source_.cols / 2), *x_);
        cv::add(*y_, cv::Scalar(source_.rows / 2), *y_);
        cv::remap(source_, target_, *x_, *y_, cv::INTER_NEAREST, cv::BORDER_CONSTANT, cv::Scalar::all(255));
    }

 private:
    static std::shared_ptr<cv::Mat> mat() { return std::make_shared<cv::Mat>(); }

    cv::Mat source_;
    cv::Mat& target_;
    std::shared_ptr<cv::Mat> radius_ = mat(), angle_ = mat(), x_ = mat(), y_ = mat();
};

std::vector<Comparison> comparisons(const cv::Mat& source, cv::Mat& target) {
    std::vector<Comparison> all;
    const auto motion = [&](const char* name, int radius, int direction, std::function<void()> theirs) {
        all.push_back({std::string("BlurMotion ") + name + ", radius " + std::to_string(radius),
                       [=](ImageDocument& d) { blurMotion(d, radius, direction); },
                       [=](const Picture& p) { return reference::blurMotion(p, radius, direction).pixels; },
                       std::move(theirs)});
    };
    for (int radius : {10, 100, 400}) {
        const int count = 2 * radius + 1;
        motion("horizontal : blur", radius, 0, [&source, &target, count] {
            cv::blur(source, target, {count, 1});
        });
        motion("vertical : blur", radius, 2, [&source, &target, count] {
            cv::blur(source, target, {1, count});
        });
        if (radius > 10) continue;
        const cv::Mat falling = cv::Mat::eye(count, count, CV_32F) / count;
        motion("falling : filter2D", radius, 1,
               [&source, &target, falling] { cv::filter2D(source, target, -1, falling); });
        cv::Mat rising;
        cv::flip(falling, rising, 0);
        motion("rising : filter2D", radius, 3,
               [&source, &target, rising] { cv::filter2D(source, target, -1, rising); });
    }
    for (int degrees : {90, 720}) {
        all.push_back({"Twirl " + std::to_string(degrees) + " : polarToCart, remap",
                       [=](ImageDocument& d) { twirl(d, degrees); },
                       [=](const Picture& p) { return reference::twirl(p, degrees, ~0u).pixels; },
                       MapTwist(source, target, degrees)});
    }
    all.push_back(
        {"BlurZoom 40 : warpPolar, blur, back",
         [=](ImageDocument& d) { blurZoom(d, d.width() / 2, d.height() / 2, 40); },
         [](const Picture& p) { return reference::blurZoom(p, p.width / 2, p.height / 2, 40).pixels; },
         PolarBlur(source, target, {41, 1})});
    all.push_back(
        {"BlurRadial 20 : warpPolar, blur, back",
         [=](ImageDocument& d) { blurRadial(d, d.width() / 2, d.height() / 2, 20); },
         [](const Picture& p) { return reference::blurRadial(p, p.width / 2, p.height / 2, 20).pixels; },
         PolarBlur(source, target, {1, 267})});
    return all;
}

}  // namespace
}  // namespace orvane

int main(int argc, char** argv) { return orvane::bench::runFilterBench(argc, argv, orvane::comparisons); }
