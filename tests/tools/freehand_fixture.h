#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "document/image_document.h"
#include "tools/brush_settings.h"
#include "tools/pen_settings.h"
#include "tools/tool_settings.h"

namespace orvane::test {

constexpr Argb kPaper = 0xFFFFFFFFu;

/// A blank raster to draw on.
struct Canvas {
    explicit Canvas(int width = 60, int height = 50, Argb colour = kPaper)
        : size{width, height}, pixels(std::size_t(width) * std::size_t(height), colour) {}

    MutablePixelView view() { return {pixels.data(), size.width, size.height, size.width}; }
    friend bool operator==(const Canvas&, const Canvas&) = default;

    IntSize size;
    std::vector<Argb> pixels;
};

/// The settings of a control without the control, and a document of 60 x 50 white pixels.
class Freehand : public testing::Test {
 protected:
    Freehand() { document.newImage(60, 50); }

    /// The image as a canvas.
    [[nodiscard]] Canvas image() const {
        Canvas canvas(document.width(), document.height());
        const PixelView view = document.currentPixels();
        canvas.pixels.assign(view.pixels, view.pixels + view.pixelCount());
        return canvas;
    }
    [[nodiscard]] int steps() const { return document.history.undoDepth; }

    PenSettings pen;
    BrushSettings brush;
    FreehandSettings freehand;
    ImageDocument document;
};

inline constexpr auto samePoint = [](IntPoint point) { return point; };

}  // namespace orvane::test
