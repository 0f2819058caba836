// Shapes on a large view, against cairo drawing the same with its default antialiasing. Ours follow curves
// twenty times as closely and give the area itself as coverage, cairo's samples rows at fifteen heights.

#include <cairo.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <span>
#include <vector>

#include "platform/graphics/shapes.h"
#include "support/ratio_timer.h"

namespace {

using namespace orvane;
using namespace orvane::bench;
using Points = std::vector<IntPoint>;

constexpr IntSize kView{1600, 1000};
constexpr Argb kOpaque = 0xFF204060u, kHalf = 0x80204060u;

/// One raster for each side.
struct Rasters {
    std::vector<Argb> pixels = std::vector<Argb>(std::size_t(kView.width) * kView.height);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kView.width, kView.height);
    cairo_t* context = cairo_create(surface);

    Rasters() = default;
    Rasters(const Rasters&) = delete;
    Rasters& operator=(const Rasters&) = delete;
    ~Rasters() {
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }

    MutablePixelView ours() { return {pixels.data(), kView.width, kView.height, kView.width}; }
    void clear() {
        pixels.assign(pixels.size(), 0);
        cairo_save(context);
        cairo_set_operator(context, CAIRO_OPERATOR_CLEAR);
        cairo_paint(context);
        cairo_restore(context);
    }
    /// How many levels the alphas differ by, on an average over the pixels that either side has touched.
    double difference() {
        cairo_surface_flush(surface);
        const auto* theirs = reinterpret_cast<const Argb*>(cairo_image_surface_get_data(surface));
        double sum = 0, touched = 0;
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            if ((pixels[i] | theirs[i]) == 0) continue;
            sum += std::abs(int(alphaOf(pixels[i])) - int(alphaOf(theirs[i])));
            touched += 1;
        }
        return touched > 0 ? sum / touched : 255;
    }
};

void setColour(cairo_t* cr, Argb colour) {
    cairo_set_source_rgba(cr, redOf(colour) / 255.0, greenOf(colour) / 255.0, blueOf(colour) / 255.0,
                          alphaOf(colour) / 255.0);
}

void setPen(cairo_t* cr, const Pen& pen) {
    double lengths[DashPattern::kMaxEntries];
    for (int i = 0; i < pen.dash.count; ++i)
        lengths[i] = double(pen.dash.lengths[std::size_t(i)]) * pen.width;
    setColour(cr, std::get<SolidBrush>(pen.brush).colour);
    cairo_set_line_width(cr, pen.width);
    cairo_set_dash(cr, lengths, pen.dash.count, 0);
}

void addEllipse(cairo_t* cr, IntRect box, double shift) {
    cairo_save(cr);
    cairo_translate(cr, box.x + box.width / 2.0 + shift, box.y + box.height / 2.0 + shift);
    cairo_scale(cr, box.width / 2.0, box.height / 2.0);
    cairo_new_path(cr);
    cairo_arc(cr, 0, 0, 1, 0, 2 * std::acos(-1));
    cairo_close_path(cr);
    cairo_restore(cr);
}

void addLines(cairo_t* cr, std::span<const IntPoint> points, double shift) {
    cairo_new_path(cr);
    for (IntPoint p : points) cairo_line_to(cr, p.x + shift, p.y + shift);
}

/// A line drawn by hand: steps of three pixels in slowly changing directions.
Points scribble(int count) {
    std::mt19937 random(1);
    Points points;
    double x = 800, y = 500, angle = 0;
    for (int i = 0; i < count; ++i) {
        angle += (int(random() % 200) - 100) / 200.0;
        x += 3 * std::cos(angle);
        y += 3 * std::sin(angle);
        if (x < 20 || x > kView.width - 20 || y < 20 || y > kView.height - 20) angle += 2;
        x = std::min(std::max(x, 20.0), kView.width - 20.0);
        y = std::min(std::max(y, 20.0), kView.height - 20.0);
        points.push_back({int(x), int(y)});
    }
    return points;
}

Points tangle(int count) {
    std::mt19937 random(2);
    Points points;
    for (int i = 0; i < count; ++i) points.push_back({int(random() % 300), int(random() % 200)});
    return points;
}

void compare(Rasters& rasters, const char* name, double tolerance,
             const std::function<void(MutablePixelView)>& ours, const std::function<void(cairo_t*)>& theirs) {
    rasters.clear();
    ours(rasters.ours());
    theirs(rasters.context);
    const double difference = rasters.difference();
    if (difference > tolerance) {
        std::printf("%s: alphas differ by %.2f on an average\n", name, difference);
        std::exit(1);
    }
    printRatioRow(name, measureRatio([&] { ours(rasters.ours()); }, [&] { theirs(rasters.context); }));
}

void filledShapes(Rasters& rasters) {
    const IntRect box{100, 100, 300, 200};
    for (Argb colour : {kOpaque, kHalf}) {
        const bool opaque = colour == kOpaque;
        compare(
            rasters, opaque ? "ellipse 300x200, opaque" : "ellipse 300x200, half-transparent", 1,
            [&](auto view) { fillEllipse(view, SolidBrush{colour}, box); },
            [&](cairo_t* cr) {
                setColour(cr, colour);
                addEllipse(cr, box, 0);
                cairo_fill(cr);
            });
    }
    for (int count : {300, 10000}) {
        const Points points = tangle(count);
        const std::string name = "polygon of " + std::to_string(count) + " random points";
        compare(
            rasters, name.c_str(), 12, [&](auto view) { fillPolygon(view, SolidBrush{kHalf}, points); },
            [&](cairo_t* cr) {
                setColour(cr, kHalf);
                cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
                addLines(cr, points, 0);
                cairo_fill(cr);
            });
    }
}

void outlines(Rasters& rasters) {
    const auto ellipse = [&](const char* name, const Pen& pen, IntRect box) {
        compare(
            rasters, name, 8, [&](auto view) { drawEllipse(view, pen, box); },
            [&](cairo_t* cr) {
                setPen(cr, pen);
                addEllipse(cr, box, 0.5);
                cairo_stroke(cr);
            });
    };
    ellipse("ellipse 300x200, pen 3", Pen(kHalf, 3), {100, 100, 300, 200});
    ellipse("ellipse 1500x900, pen 1", Pen(kOpaque), {50, 50, 1500, 900});

    const auto rectangle = [&](const char* name, const Pen& pen, IntRect box) {
        compare(
            rasters, name, 1, [&](auto view) { drawRectangle(view, pen, box); },
            [&](cairo_t* cr) {
                setPen(cr, pen);
                cairo_rectangle(cr, box.x + 0.5, box.y + 0.5, box.width, box.height);
                cairo_stroke(cr);
            });
    };
    rectangle("grab handle, pen 1", Pen(kOpaque), {500, 500, 7, 7});
    rectangle("rectangle 1500x900, pen 1", Pen(kOpaque), {50, 50, 1500, 900});
    Pen crawling(kOpaque);
    crawling.dash = {{4, 5}, 2};
    rectangle("dashed rectangle 1500x900, pen 1", crawling, {50, 50, 1500, 900});
}

void lines(Rasters& rasters) {
    const auto polyline = [&](const char* name, const Pen& pen, const Points& points, double tolerance) {
        compare(
            rasters, name, tolerance, [&](auto view) { drawLines(view, pen, points); },
            [&](cairo_t* cr) {
                setPen(cr, pen);
                addLines(cr, points, 0.5);
                cairo_stroke(cr);
            });
    };
    polyline("line across the view, pen 1", Pen(kOpaque), {{10, 10}, {1500, 900}}, 8);
    polyline("scribble of 10000 points, pen 1", Pen(kOpaque), scribble(10000), 8);
    polyline("scribble of 10000 points, pen 8", Pen(kHalf, 8), scribble(10000), 8);
    polyline("300 random lines in 300x200, pen 3", Pen(kHalf, 3), tangle(300), 8);
    polyline("10000 random lines in 300x200, pen 1", Pen(kHalf), tangle(10000), 12);
}

}  // namespace

int main() {
    Rasters rasters;
    std::printf("Shapes on a view of %d x %d / cairo\n", kView.width, kView.height);
    printRatioHeader();
    filledShapes(rasters);
    outlines(rasters);
    lines(rasters);
}
