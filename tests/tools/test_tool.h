#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/image_document.h"
#include "platform/graphics/shapes.h"
#include "support/pictures.h"
#include "tools/paint_tool.h"

namespace orvane::test {

inline constexpr Argb kWhitePaper = 0xFFFFFFFFu;
inline std::string at(IntPoint point) { return std::to_string(point.x) + ", " + std::to_string(point.y); }

inline constexpr auto sameSpot = [](IntPoint point) { return point; };

/// A tool with settings of its own in a client area, and a white picture of that size to commit into.
template <class Tool>
class TestTool {
 public:
    explicit TestTool(IntSize area = {120, 100}) : client(area) {
        document.newImage(area.width, area.height);
        tool.bounds = {0, 0, area.width, area.height};
    }

    TestTool& press(IntPoint mouse, MouseButton button = MouseButton::Left) {
        tool.OnMouseDown(button, mouse);
        return *this;
    }
    TestTool& rightPress(IntPoint mouse) { return press(mouse, MouseButton::Right); }
    TestTool& move(IntPoint mouse) {
        tool.OnMouseMove(mouse);
        return *this;
    }
    TestTool& release(IntPoint mouse) {
        tool.OnMouseUp(mouse);
        return *this;
    }
    TestTool& drag(IntPoint from, IntPoint to) { return press(from).move(to).release(to); }
    TestTool& click(IntPoint mouse) { return press(mouse).release(mouse); }
    TestTool& clicks(std::initializer_list<IntPoint> places) {
        for (const IntPoint place : places) click(place);
        return *this;
    }

    void commit() { tool.commit(document, sameSpot); }
    int steps() const { return document.history.undoDepth; }
    std::vector<Argb> image() const { return pictureOf(document); }

    /// What draw(view) makes of white paper.
    template <class Draw>
    std::vector<Argb> painted(Draw&& draw) const {
        std::vector<Argb> pixels(std::size_t(client.width) * std::size_t(client.height), kWhitePaper);
        draw(MutablePixelView{pixels.data(), client.width, client.height, client.width});
        return pixels;
    }
    std::vector<Argb> overlay() {
        return painted([this](MutablePixelView view) { tool.Draw(view); });
    }
    Argb overlayAt(IntPoint pixel) { return overlay()[std::size_t(pixel.y * client.width + pixel.x)]; }

    IntSize client;
    PenSettings pen;
    BrushSettings brush;
    Tool tool{pen, brush};
    ImageDocument document;
};

}  // namespace orvane::test
