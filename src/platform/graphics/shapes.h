#pragma once

#include <span>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

#include "platform/graphics/brush.h"
#include "platform/graphics/pen.h"

/// Antialiased shapes in whole pixels, drawn over a raster by straight-alpha source-over.
///
/// Pens run through pixel centres: a line of width 1 at whole coordinates is crisp, and the outline of a
/// rectangle covers the columns x to x + width and the rows y to y + height, both included. Lines are cut off
/// flat at their ends, so that the first and the last pixel of an open one are half covered. Fills cover
/// whole pixels: x <= px < x + width. A pixel's coverage is the area that the shape takes of it. Each call is
/// one act of painting: where an outline crosses itself, a half-transparent pen shows no darker spot.
///
/// Curves are cardinal splines of tension 0.5. Polygons and closed curves fill alternately (even-odd). Angles
/// are degrees, clockwise on screen, between the positive x axis and the ray from the centre; a negative
/// sweep goes the other way, and 360 or more is once round. Dashes begin with the first point, those of a
/// rectangle at its top-left corner and those of an ellipse at its rightmost point.
///
/// Coordinates may be anything: what lies outside the raster is cut off and costs next to nothing. Nothing is
/// drawn without points enough (two, three for areas and closed curves, four for Bezier chains), with an
/// empty rectangle, an angle that is no number, no sweep, points that all coincide, or when memory runs out.
/// Cost follows the area and the outline inside the raster; where several thousand edges cross in one row of
/// pixels, that row's coverage is taken at sixteen heights only.
namespace orvane {

void drawLine(MutablePixelView target, const Pen& pen, IntPoint from, IntPoint to) noexcept;
void drawLines(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept;
void drawCurve(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept;
void drawClosedCurve(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept;
void drawPolygon(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept;
/// A chain of cubic segments: one start point, then three points for each; excess points are ignored.
void drawBeziers(MutablePixelView target, const Pen& pen, std::span<const IntPoint> points) noexcept;
void drawRectangle(MutablePixelView target, const Pen& pen, IntRect box) noexcept;
void drawEllipse(MutablePixelView target, const Pen& pen, IntRect box) noexcept;
void drawArc(MutablePixelView target, const Pen& pen, IntRect box, float start, float sweep) noexcept;
/// The arc with the lines from its ends to the centre.
void drawPie(MutablePixelView target, const Pen& pen, IntRect box, float start, float sweep) noexcept;

void fillRectangle(MutablePixelView target, const Brush& brush, IntRect box) noexcept;
void fillEllipse(MutablePixelView target, const Brush& brush, IntRect box) noexcept;
void fillPie(MutablePixelView target, const Brush& brush, IntRect box, float start, float sweep) noexcept;
void fillPolygon(MutablePixelView target, const Brush& brush, std::span<const IntPoint> points) noexcept;
void fillClosedCurve(MutablePixelView target, const Brush& brush, std::span<const IntPoint> points) noexcept;

}  // namespace orvane
