// A redraw while the angle of a free rotation is dragged, against OpenCV's bilinear turn of the whole picture
// into the same rectangle of the window, and against its turn of a picture that has been averaged before.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <span>
#include <string>

#include <orvane/headless_window.h>
#include <opencv2/imgproc.hpp>

#include "control/paint_mode.h"
#include "control/vistrel_control.h"
#include "geometry/free_rotation.h"
#include "support/photograph.h"
#include "support/ratio_timer.h"
#include "view/view_mapping.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kPicture{6000, 4000}, kView{1600, 1000};
constexpr MouseButtons kLeft{.left = true};

class Scene {
 public:
    Scene() {
        control.onSize(kView.width, kView.height);
        const auto photo = photograph(kPicture.width, kPicture.height);
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(photo.data());
        if (!control.document.loadPixels({bytes, photo.size() * 4}, kPicture.width, kPicture.height)) {
            std::puts("no memory");
        }
    }

    /// The thumb in the mouse's hand; moving it by two or three pixels changes the angle by one degree.
    void startDrag() {
        control.SetPaintStatus(PaintMode::Rotation);
        control.refresh();
        control.onLeftDown(220, kView.height - 40);
    }
    void endDrag() {
        control.onLeftUp(0, 0);
        control.SetPaintStatus(PaintMode::None);
    }
    void dragTo(float angle) { control.onMouseMove(int(std::lround(220.5 + 2.5 * angle)), 0, kLeft); }

    HeadlessWindow window{kView.width, kView.height};
    VistrelControl control{&window};
};

class Peer {
 public:
    explicit Peer(Scene& scene) : document_(scene.control.document) {
        const PixelView pixels = document_.currentPixels();
        picture_ = cv::Mat(pixels.height, pixels.width, CV_8UC4, const_cast<Argb*>(pixels.pixels));
        const IntRect shown = document_.imageRect();
        frame_ = {shown.width, shown.height};
        visible_ = shown.intersected({0, 0, kView.width, kView.height});
        offset_ = {visible_.x - shown.x, visible_.y - shown.y};
        result_.create(visible_.height, visible_.width, CV_8UC4);
        if (document_.view.zoom < 1) {
            cv::resize(picture_, averaged_, cv::Size(frame_.width, frame_.height), 0, 0, cv::INTER_AREA);
        }
    }
    [[nodiscard]] bool hasAveraged() const { return !averaged_.empty(); }
    void turn(float angle) { turn(picture_, angle); }
    void turnAveraged(float angle) { turn(averaged_, angle); }

 private:
    void turn(const cv::Mat& picture, float angle) {
        const AffineMap map = turnedToPicture(frame_, angle, {picture.cols, picture.rows})
                                  .after(AffineMap::translation(offset_.x, offset_.y));
        const cv::Mat matrix = (cv::Mat_<double>(2, 3) << map.xx, map.xy, map.x0, map.yx, map.yy, map.y0);
        cv::warpAffine(picture, result_, matrix, result_.size(), cv::INTER_LINEAR | cv::WARP_INVERSE_MAP);
    }

    const ImageDocument& document_;
    cv::Mat picture_, averaged_, result_;
    IntSize frame_;
    IntRect visible_;
    IntPoint offset_;
};

// The angle changes with every redraw, by one degree to and fro around the middle.
template <class Draw>
auto wandering(float middle, Draw draw) {
    return [=, count = 0]() mutable { draw(middle + float(count++ % 4)); };
}

void measureAt(Scene& scene, double zoom) {
    ViewState& view = scene.control.document.view;
    view.zoom = zoom;
    if (zoom == 0) zoomToFit(scene.control.document);
    view.centreView();
    Peer peer(scene);
    scene.startDrag();
    for (const float angle : {-45.0f, -20.0f, 3.0f, 30.0f, 42.0f}) {
        char name[80];
        std::snprintf(name, sizeof name, "zoom %.3f, angle %+.0f", view.zoom, double(angle));
        auto redraw = wandering(angle, [&](float a) { scene.dragTo(a); });
        printRatioRow((std::string(name) + " / turn").c_str(),
                      measureRatio(redraw, wandering(angle, [&](float a) { peer.turn(a); })));
        if (!peer.hasAveraged()) continue;
        printRatioRow((std::string(name) + " / averaged turn").c_str(),
                      measureRatio(redraw, wandering(angle, [&](float a) { peer.turnAveraged(a); })));
    }
    // The copy that the preview keeps is made anew each time.
    if (peer.hasAveraged()) {
        float angle = 45;
        printRatioRow("  from end to end / turn",
                      measureRatio([&] { scene.dragTo(angle = -angle); }, [&] { peer.turn(angle); }));
    }
    scene.endDrag();
}

// The whole picture, with its history step, into memory that has been used before.
void measureCommit(ImageDocument& document) {
    const PixelView pixels = document.currentPixels();
    const IntSize size{pixels.width, pixels.height};
    for (int i = 0; i < 2 * HistoryStack::kHistorySlots; ++i) applyRotation(document);
    cv::Mat picture(size.height, size.width, CV_8UC4, const_cast<Argb*>(document.currentPixels().pixels)),
        result;
    for (const float angle : {-45.0f, 3.0f, 30.0f}) {
        document.rotationAngle = angle;
        const AffineMap map = turnedToPicture(size, angle, size);
        const cv::Mat matrix = (cv::Mat_<double>(2, 3) << map.xx, map.xy, map.x0, map.yx, map.yy, map.y0);
        const auto commit = [&] {
            applyRotation(document);
            document.undo();
        };
        printRatioRow(("commit, angle " + std::to_string(int(angle)) + " / turn").c_str(),
                      measureRatio(commit,
                                   [&] {
                                       cv::warpAffine(picture, result, matrix, picture.size(),
                                                      cv::INTER_LINEAR | cv::WARP_INVERSE_MAP);
                                   },
                                   {3, 3, 1.0}));
    }
}

}  // namespace

int main() {
    cv::setNumThreads(1);
    Scene scene;
    std::printf("%d x %d in a window of %d x %d\n", kPicture.width, kPicture.height, kView.width,
                kView.height);
    printRatioHeader();
    for (const double zoom : {0.0, 0.5, 1.0, 2.144}) measureAt(scene, zoom);
    measureCommit(scene.control.document);
}
