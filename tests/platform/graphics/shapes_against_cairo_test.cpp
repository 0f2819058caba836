// The same shapes drawn by cairo, at sixteen times the size and averaged: at the size itself its own coverage
// is off by up to four levels, since it samples a row at fifteen heights.
//
// Strokes of curves are compared where the curve bends no narrower than the pen. In narrower bends cairo
// leaves notches and holes at the inner side of the bend, which are filled here.

#include <cairo.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <ostream>
#include <random>

#include "platform/graphics/shapes.h"
#include "support/canvas.h"

namespace orvane {
namespace {

using test::Canvas;

constexpr int kWidth = 90, kHeight = 70, kScale = 16;
constexpr Argb kOpaque = 0xFF000000u;
const double kPi = std::acos(-1);

/// Coverages of what `drawing` draws, in hundredths of a level.
std::vector<int> drawnByCairo(const std::function<void(cairo_t*)>& drawing) {
    const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, kWidth * kScale, kHeight * kScale),
        cairo_surface_destroy);
    const std::unique_ptr<cairo_t, void (*)(cairo_t*)> context(cairo_create(surface.get()), cairo_destroy);
    cairo_scale(context.get(), kScale, kScale);
    cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_BEST);
    cairo_set_tolerance(context.get(), 0.001);
    cairo_set_fill_rule(context.get(), CAIRO_FILL_RULE_EVEN_ODD);
    drawing(context.get());
    cairo_surface_flush(surface.get());

    std::vector<int> sums(std::size_t(kWidth) * kHeight);
    for (int y = 0; y < kHeight * kScale; ++y) {
        const unsigned char* const row =
            cairo_image_surface_get_data(surface.get()) + y * cairo_image_surface_get_stride(surface.get());
        for (int x = 0; x < kWidth * kScale; ++x) {
            sums[std::size_t(y / kScale * kWidth + x / kScale)] += row[x];
        }
    }
    for (int& sum : sums) sum = sum * 100 / (kScale * kScale);
    return sums;
}

/// Random shapes, in both ways of drawing them.
class Shape {
 public:
    explicit Shape(unsigned seed) : random_(seed) {
        points_.resize(3 + random_() % 5);
        for (IntPoint& p : points_) p = {between(-20, kWidth + 20), between(-20, kHeight + 20)};
        pen_.width = 0.25f * float(between(4, 40));
        box_ = {between(-10, 50), between(-10, 40), between(1, 70), between(1, 60)};
        start_ = float(between(-500, 500));
        sweep_ = float(between(-719, 719)) / 2;
    }

    void dash() {
        pen_.dash.count = 2 * between(1, 3);
        for (float& length : pen_.dash.lengths) length = float(between(20, 900)) / 177;
        pen_.dashOffset = float(between(-1000, 1000)) / 17.7f;
    }
    /// Points round the middle, so that a spline bends wider than the pen, which becomes a fine one.
    void makeGentle() {
        for (std::size_t i = 0; i < points_.size(); ++i) {
            const double angle = 2 * kPi * double(i) / double(points_.size()), radius = between(22, 30);
            points_[i] = {int(45 + radius * 1.3 * std::cos(angle)), int(35 + radius * std::sin(angle))};
        }
        pen_.width = 0.25f * float(between(4, 16));
        box_ = {between(-10, 30), between(-10, 20), between(40, 70), between(40, 60)};
    }

    [[nodiscard]] std::span<const IntPoint> points() const { return points_; }
    [[nodiscard]] const Pen& pen() const { return pen_; }
    [[nodiscard]] IntRect box() const { return box_; }
    [[nodiscard]] float start() const { return start_; }
    [[nodiscard]] float sweep() const { return sweep_; }

    void setPen(cairo_t* cr) const {
        double lengths[DashPattern::kMaxEntries];
        for (int i = 0; i < pen_.dash.count; ++i)
            lengths[i] = double(pen_.dash.lengths[std::size_t(i)]) * pen_.width;
        cairo_set_line_width(cr, pen_.width);
        cairo_set_dash(cr, lengths, pen_.dash.count, double(pen_.dashOffset) * pen_.width);
        cairo_translate(cr, 0.5, 0.5);
    }
    void addLines(cairo_t* cr) const {
        for (IntPoint p : points_) cairo_line_to(cr, p.x, p.y);
    }
    void addSpline(cairo_t* cr, bool closed) const {
        const int count = int(points_.size());
        const auto at = [&](int i) {
            return points_[std::size_t(closed ? (i + count) % count : std::min(std::max(i, 0), count - 1))];
        };
        cairo_move_to(cr, at(0).x, at(0).y);
        for (int i = 0; i < count - (closed ? 0 : 1); ++i) {
            const IntPoint a = at(i - 1), b = at(i), c = at(i + 1), d = at(i + 2);
            cairo_curve_to(cr, b.x + (c.x - a.x) / 6.0, b.y + (c.y - a.y) / 6.0, c.x - (d.x - b.x) / 6.0,
                           c.y - (d.y - b.y) / 6.0, c.x, c.y);
        }
        if (closed) cairo_close_path(cr);
    }
    void addArc(cairo_t* cr, double start, double sweep) const {
        const double radiusX = box_.width / 2.0, radiusY = box_.height / 2.0;
        const auto parameter = [&](double degrees) {
            const double angle = degrees * kPi / 180;
            const double t = std::atan2(std::sin(angle) * radiusX, std::cos(angle) * radiusY);
            return t + 2 * kPi * std::round((angle - t) / (2 * kPi));
        };
        cairo_save(cr);
        cairo_translate(cr, box_.x + radiusX, box_.y + radiusY);
        cairo_scale(cr, radiusX, radiusY);
        (sweep < 0 ? cairo_arc_negative : cairo_arc)(cr, 0, 0, 1, parameter(start), parameter(start + sweep));
        cairo_restore(cr);
    }
    void addPie(cairo_t* cr) const {
        cairo_move_to(cr, box_.x + box_.width / 2.0, box_.y + box_.height / 2.0);
        addArc(cr, start_, sweep_);
        cairo_close_path(cr);
    }
    void addEllipse(cairo_t* cr) const {
        addArc(cr, 0, 360);
        cairo_close_path(cr);
    }

 private:
    int between(int least, int most) { return least + int(random_() % unsigned(most - least + 1)); }

    std::mt19937 random_;
    std::vector<IntPoint> points_;
    Pen pen_{kOpaque};
    IntRect box_;
    float start_ = 0, sweep_ = 0;
};

using Prepare = void (*)(Shape&);
const Prepare kAsItIs = [](Shape&) {}, kDashed = [](Shape&s) { s.dash(); },
              kGentle = [](Shape&s) { s.makeGentle(); };
const Prepare kGentleDashed = [](Shape& s) {
    s.makeGentle();
    s.dash();
};

// Where a dash of a curve ends, and how steeply it is cut, cairo takes from short chords between rounded
// points.
constexpr double kDashTolerance = 6;

const struct Case {
    const char* name;
    Prepare prepare;
    void (*ours)(MutablePixelView, const Shape&);
    void (*theirs)(cairo_t*, const Shape&);
    double tolerance;  ///< in levels of 255

    friend void PrintTo(const Case& shape, std::ostream* output) { *output << shape.name; }
} kCases[] = {
    {"filled polygon", kAsItIs, [](auto v, auto& s) { fillPolygon(v, s.pen().brush, s.points()); },
     [](cairo_t* cr, auto& s) { s.addLines(cr), cairo_fill(cr); }, 2},
    {"filled closed curve", kAsItIs, [](auto v, auto& s) { fillClosedCurve(v, s.pen().brush, s.points()); },
     [](cairo_t* cr, auto& s) { s.addSpline(cr, true), cairo_fill(cr); }, 2},
    {"filled ellipse", kAsItIs, [](auto v, auto& s) { fillEllipse(v, s.pen().brush, s.box()); },
     [](cairo_t* cr, auto& s) { s.addEllipse(cr), cairo_fill(cr); }, 2},
    {"filled pie", kAsItIs, [](auto v, auto& s) { fillPie(v, s.pen().brush, s.box(), s.start(), s.sweep()); },
     [](cairo_t* cr, auto& s) { s.addPie(cr), cairo_fill(cr); }, 2},
    {"lines", kAsItIs, [](auto v, auto& s) { drawLines(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addLines(cr), cairo_stroke(cr); }, 2},
    {"polygon", kAsItIs, [](auto v, auto& s) { drawPolygon(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addLines(cr), cairo_close_path(cr), cairo_stroke(cr); }, 2},
    {"dashed polygon", kDashed, [](auto v, auto& s) { drawPolygon(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addLines(cr), cairo_close_path(cr), cairo_stroke(cr); }, 2},
    {"curve", kGentle, [](auto v, auto& s) { drawCurve(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addSpline(cr, false), cairo_stroke(cr); }, 2},
    {"closed curve", kGentle, [](auto v, auto& s) { drawClosedCurve(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addSpline(cr, true), cairo_stroke(cr); }, 2},
    {"dashed closed curve", kGentleDashed, [](auto v, auto& s) { drawClosedCurve(v, s.pen(), s.points()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addSpline(cr, true), cairo_stroke(cr); }, kDashTolerance},
    {"ellipse", kGentle, [](auto v, auto& s) { drawEllipse(v, s.pen(), s.box()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addEllipse(cr), cairo_stroke(cr); }, 2},
    {"pie", kGentle, [](auto v, auto& s) { drawPie(v, s.pen(), s.box(), s.start(), s.sweep()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addPie(cr), cairo_stroke(cr); }, 2},
    {"dashed arc", kGentleDashed, [](auto v, auto& s) { drawArc(v, s.pen(), s.box(), s.start(), s.sweep()); },
     [](cairo_t* cr, auto& s) { s.setPen(cr), s.addArc(cr, s.start(), s.sweep()), cairo_stroke(cr); },
     kDashTolerance},
};

class AgainstCairo : public testing::TestWithParam<Case> {};

TEST_P(AgainstCairo, CoversTheSame) {
    const Case& c = GetParam();
    for (unsigned seed = 1; seed <= 25; ++seed) {
        Shape shape(seed);
        c.prepare(shape);
        Canvas canvas(kWidth, kHeight);
        c.ours(canvas.view(), shape);
        const std::vector<int> expected = drawnByCairo([&](cairo_t* cr) { c.theirs(cr, shape); });
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                ASSERT_NEAR(canvas.coverage(x, y), expected[std::size_t(y * kWidth + x)] / 100.0, c.tolerance)
                    << "shape " << seed << " at " << x << ", " << y << ", pen of " << shape.pen().width;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, AgainstCairo, testing::ValuesIn(kCases), [](const auto& shape) {
    std::string name = shape.param.name;
    for (char& c : name) c = c == ' ' ? '_' : c;
    return name;
});

}  // namespace
}  // namespace orvane
