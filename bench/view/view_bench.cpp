// Painting a large picture against OpenCV's resizing to the same size, and against plain copies.

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <opencv2/imgproc.hpp>

#include "base/random_stream.h"
#include "support/ratio_timer.h"
#include "view/draw_view.h"
#include "view/view_mapping.h"

namespace {

using namespace orvane;
using namespace orvane::bench;

constexpr IntSize kPicture{6000, 4000}, kView{1600, 1000};
constexpr Argb kBackground = 0xFF00008Bu;

class Scene {
 public:
    explicit Scene(bool opaque) {
        std::vector<std::uint8_t> bytes(std::size_t(kPicture.width) * kPicture.height * 4);
        RandomStream random;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = opaque && i % 4 == 3 ? std::uint8_t{255} : std::uint8_t(random.next());
        }
        document.view.setViewSize(kView, {});
        if (!document.loadPixels(bytes, kPicture.width, kPicture.height)) std::puts("no memory");
        window.resize(backBuffer.size());
    }

    void paint() {
        painter.paint(document, kBackground, {backBuffer.data(), kView.width, kView.height, kView.width});
    }
    void present() { std::memcpy(window.data(), backBuffer.data(), window.size() * sizeof(Argb)); }
    void paintAnew() {
        painter.releaseMemory();
        paint();
    }

    /// The visible part of the picture, and the size in which it is shown.
    cv::Mat visiblePart(cv::Size& shown) {
        const IntRect r = document.imageRect(), view{0, 0, kView.width, kView.height},
                      part = r.intersected(view);
        const double scale = 1.0 / document.view.zoom;
        shown = {part.width, part.height};
        cv::Rect source(int((part.x - r.x) * scale), int((part.y - r.y) * scale), int(part.width * scale),
                        int(part.height * scale));
        source &= cv::Rect(0, 0, kPicture.width, kPicture.height);
        const PixelView pixels = document.currentPixels();
        return cv::Mat(pixels.height, pixels.width, CV_8UC4, const_cast<Argb*>(pixels.pixels))(source);
    }

    ImageDocument document;
    ViewPainter painter;
    std::vector<Argb> backBuffer = std::vector<Argb>(std::size_t(kView.width) * kView.height), window;
};

void againstResize(Scene& scene, const char* name, const cv::Mat& source, cv::Size shown, auto&& ours) {
    cv::Mat result(shown, CV_8UC4);
    const int method = shown.width < source.cols ? cv::INTER_AREA : cv::INTER_LINEAR;
    printRatioRow(name, measureRatio(ours, [&] { cv::resize(source, result, shown, 0, 0, method); }));
    (void)scene;
}

void paintAtFit(Scene& scene) {
    zoomToFit(scene.document);
    cv::Size shown;
    const cv::Mat picture = scene.visiblePart(shown);
    cv::Mat twice;
    cv::resize(picture, twice, shown * 2, 0, 0, cv::INTER_AREA);
    againstResize(scene, "paint + present at fit / area from 2x copy", twice, shown, [&] {
        scene.paint();
        scene.present();
    });
    againstResize(scene, "first paint at fit / area from all", picture, shown, [&] { scene.paintAnew(); });
}

void paintAtOne(Scene& scene) {
    setZoom(scene.document, 1.0);
    std::vector<Argb> copy(scene.backBuffer.size());
    const PixelView pixels = scene.document.currentPixels();
    printRatioRow("paint + present at 1.0 / copies",
                  measureRatio(
                      [&] {
                          scene.paint();
                          scene.present();
                      },
                      [&] {
                          for (int y = 0; y < kView.height; ++y) {
                              std::memcpy(copy.data() + std::size_t(y) * kView.width,
                                          pixels.row(y + 1500) + 2200, kView.width * sizeof(Argb));
                          }
                          std::memcpy(scene.window.data(), copy.data(), copy.size() * sizeof(Argb));
                      }));
}

void zoomSteps(Scene& scene) {
    for (double zoom : {0.05, 0.1, 0.2, 0.35, 0.5, 0.683, 0.909, 1.1, 1.331, 2.144, 3.3, 8.0}) {
        scene.document.view.zoom = zoom;
        scene.document.view.centreView();
        cv::Size shown;
        const cv::Mat part = scene.visiblePart(shown);
        const std::string name = "zoom step to " + std::to_string(zoom).substr(0, 5) + " / resize";
        againstResize(scene, name.c_str(), part, shown, [&] { scene.paintAnew(); });
    }
}

void panSteps(Scene& scene) {
    for (double zoom : {0.683, 1.0, 2.144}) {
        scene.document.view.zoom = zoom;
        scene.document.view.centreView();
        cv::Size shown;
        const cv::Mat part = scene.visiblePart(shown);
        const std::string name = "pan by (12, 7) at " + std::to_string(zoom).substr(0, 5) + " / resize";
        int step = 0;
        againstResize(scene, name.c_str(), part, shown, [&] {
            const int direction = (step++ / 8) % 2 == 0 ? 1 : -1;
            scene.document.view.viewCentreX += 12 * direction;
            scene.document.view.viewCentreY += 7 * direction;
            scene.paint();
        });
    }
}

}  // namespace

int main() {
    cv::setNumThreads(1);
    for (bool opaque : {true, false}) {
        Scene scene(opaque);
        std::printf("%s picture of %d x %d in a view of %d x %d\n", opaque ? "Opaque" : "Partly transparent",
                    kPicture.width, kPicture.height, kView.width, kView.height);
        printRatioHeader();
        paintAtFit(scene);
        paintAtOne(scene);
        zoomSteps(scene);
        panSteps(scene);
    }
}
