#pragma once

#include <orvane/pixels.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "filters/reference_picture.h"
#include "platform/graphics/source_over.h"

/// The filters that move or smear pixels along a path, by their definitions alone: every sample is read,
/// every walk is walked. They define the results; the filters must give the same bytes.
namespace orvane::reference {

/// Colours added up, each as often as it is asked for.
struct Mean {
    std::int64_t red = 0, green = 0, blue = 0, count = 0;

    void add(Argb pixel, std::int64_t times = 1) {
        red += redOf(pixel) * times;
        green += greenOf(pixel) * times;
        blue += blueOf(pixel) * times;
        count += times;
    }
    [[nodiscard]] Argb value() const {
        return makeOpaque(unsigned(red / count), unsigned(green / count), unsigned(blue / count));
    }
};

inline Picture blurMotion(const Picture& source, int radius, int direction) {
    const std::int64_t stepX = direction == 2 ? 0 : direction == 0 || direction == 1 ? 1 : -1;
    const std::int64_t stepY = direction == 0 ? 0 : 1;
    // From this distance on every sample is the same corner or border pixel.
    const std::int64_t reach = std::min<std::int64_t>(radius, source.width + source.height);
    Picture target = source;
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            Mean mean;
            for (std::int64_t i = -reach; i <= reach; ++i) {
                mean.add(source.clampedAt(x + stepX * i, y + stepY * i));
            }
            mean.add(source.clampedAt(x - stepX * reach, y - stepY * reach), radius - reach);
            mean.add(source.clampedAt(x + stepX * reach, y + stepY * reach), radius - reach);
            target.at(x, y) = mean.value();
        }
    }
    return target;
}

inline Picture twirl(const Picture& source, int degrees, Argb outside) {
    const int centreX = source.width / 2, centreY = source.height / 2;
    const double farthest = std::sqrt(double(centreX) * centreX + double(centreY) * centreY);
    const double f = degrees / farthest;
    Picture target = source;
    for (int y = 0; y < source.height; ++y) {
        for (int x = 0; x < source.width; ++x) {
            const double dx = x - centreX, dy = y - centreY;
            const double angle = std::sqrt(dx * dx + dy * dy) * f * 0.0174532925;
            const double fromX = centreX + dx * std::cos(angle) - dy * std::sin(angle);
            const double fromY = centreY + dx * std::sin(angle) + dy * std::cos(angle);
            const auto sourceX = std::int64_t(fromX), sourceY = std::int64_t(fromY);
            const Argb word = source.contains(sourceX, sourceY) ? source.at(sourceX, sourceY) : outside;
            target.at(x, y) = sourceOver(word, source.at(x, y));
        }
    }
    return target;
}

struct Point {
    std::int64_t x = 0, y = 0;
    friend bool operator==(const Point& a, const Point& b) { return a.x == b.x && a.y == b.y; }
};

/// The neighbours of a point in the order in which walks prefer them.
inline constexpr Point kNeighbours[] = {{0, -1}, {1, -1}, {1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}};

inline Point pathCentre(const Picture& picture, int x, int y) {
    return {std::max(std::min(std::max(x, 1), picture.width - 2), 0),
            std::max(std::min(std::max(y, 1), picture.height - 2), 0)};
}

/// The walk from a border pixel to the centre along the line between them; empty when they are the same.
inline std::vector<Point> ray(Point start, Point centre, std::size_t capacity) {
    const std::int64_t dx = centre.x - start.x, dy = centre.y - start.y, squaredLength = dx * dx + dy * dy;
    if (squaredLength < 1) return {};
    std::vector<Point> points{start};
    while (!(points.back() == centre) && points.size() < capacity) {
        const Point from = points.back();
        const std::int64_t toGo = std::abs(centre.x - from.x) + std::abs(centre.y - from.y);
        std::int64_t nearest = -1;  // distance from the line, times the line's length
        Point next;
        for (const Point& step : kNeighbours) {
            const Point q{from.x + step.x, from.y + step.y};
            if (std::abs(centre.x - q.x) + std::abs(centre.y - q.y) > toGo) continue;
            const std::int64_t distance = std::abs(dx * (q.y - start.y) - dy * (q.x - start.x));
            const bool close =
                points.size() == 1 ? distance < squaredLength : distance * distance < 4 * squaredLength;
            if (close && (nearest < 0 || distance < nearest)) {
                nearest = distance;
                next = q;
            }
        }
        if (nearest < 0) break;
        points.push_back(next);
    }
    return points;
}

inline Picture blurZoom(const Picture& source, int x, int y, int strength) {
    const Point centre = pathCentre(source, x, y);
    const std::int64_t right = source.width - 1, bottom = source.height - 1;
    std::int64_t farthest = 0, capacity = 0;
    for (const Point& corner : {Point{0, 0}, Point{right, 0}, Point{right, bottom}, Point{0, bottom}}) {
        const std::int64_t dx = corner.x - centre.x, dy = corner.y - centre.y;
        farthest = std::max(farthest, dx * dx + dy * dy);
        capacity = std::max({capacity, std::abs(dx) + 1, std::abs(dy) + 1});
    }
    std::vector<Point> starts;
    for (std::int64_t i = 0; i < right; ++i) starts.push_back({i, 0});
    for (std::int64_t i = 0; i < bottom; ++i) starts.push_back({right, i});
    for (std::int64_t i = 1; i <= right; ++i) starts.push_back({i, bottom});
    for (std::int64_t i = 1; i <= bottom; ++i) starts.push_back({0, i});

    Picture target = source;
    std::vector<bool> visited(source.pixels.size());
    for (const Point& start : starts) {
        const std::vector<Point> points = ray(start, centre, std::size_t(capacity));
        const std::int64_t count = std::int64_t(points.size());
        for (std::int64_t j = 0; j < count; ++j) {
            const Point p = points[std::size_t(j)];
            const std::size_t index = std::size_t(p.y * source.width + p.x);
            if (visited[index]) continue;
            visited[index] = true;
            const double squared =
                double((p.x - centre.x) * (p.x - centre.x) + (p.y - centre.y) * (p.y - centre.y));
            const std::int64_t k = std::int64_t(squared / double(farthest) * strength);
            Mean mean;
            // From this distance on every sample is an end of the ray.
            const std::int64_t reach = std::min(k, count);
            for (std::int64_t i = j - reach; i <= j + reach; ++i) {
                const Point q = points[std::size_t(std::clamp<std::int64_t>(i, 0, count - 1))];
                mean.add(source.at(q.x, q.y));
            }
            if (k > reach) mean.add(source.at(points[0].x, points[0].y), k - reach);
            if (k > reach) mean.add(source.at(points.back().x, points.back().y), k - reach);
            target.at(p.x, p.y) = k < 0 ? 0xFF000000u : mean.value();
        }
    }
    return target;
}

/// The walk round a centre from the point to its left, which comes last.
inline std::vector<Point> ring(int radius, Point centre, std::size_t capacity) {
    const Point start{centre.x - radius, centre.y};
    std::vector<Point> points;
    if (radius == 1) {
        for (const Point& step : kNeighbours) points.push_back({start.x + step.x, start.y + step.y});
        return points;
    }
    Point from = start;
    do {
        const Point p{from.x - centre.x, from.y - centre.y};
        std::int64_t nearest = -1;  // difference from the squared radius
        for (const Point& step : kNeighbours) {
            const Point q{p.x + step.x, p.y + step.y};
            if (p.x * q.y - p.y * q.x <= 0) continue;
            const std::int64_t off = std::abs(q.x * q.x + q.y * q.y - std::int64_t(radius) * radius);
            if (nearest < 0 || off < nearest) {
                nearest = off;
                from = {centre.x + q.x, centre.y + q.y};
            }
        }
        points.push_back(from);
    } while (!(from == start) && points.size() < capacity);
    return points;
}

inline Picture blurRadial(const Picture& source, int x, int y, int angle) {
    const Point centre = pathCentre(source, x, y);
    const double halfAngle = (angle / 2) * 0.0174532925;
    const double a = double(std::max(std::abs(centre.x + 1), std::abs(source.width - centre.x)));
    const double b = double(std::max(std::abs(centre.y + 1), std::abs(source.height - centre.y)));
    const int lastRadius = int(std::sqrt(a * a + b * b));

    Picture smeared = source;
    std::vector<bool> visited(source.pixels.size());
    for (int radius = 1; radius <= lastRadius; ++radius) {
        const std::vector<Point> points = ring(radius, centre, std::size_t(6 * radius + 16));
        const std::int64_t count = std::int64_t(points.size());
        const std::int64_t k = std::int64_t(radius * halfAngle), turns = std::max<std::int64_t>(k, 0) / count;
        // Each whole turn of the window to either side meets every point once.
        Mean wholeTurns;
        for (const Point& p : points) wholeTurns.add(source.clampedAt(p.x, p.y), 2 * turns);
        for (std::int64_t j = 0; j < count; ++j) {
            const Point p = points[std::size_t(j)];
            if (!source.contains(p.x, p.y) || visited[std::size_t(p.y * source.width + p.x)]) continue;
            visited[std::size_t(p.y * source.width + p.x)] = true;
            Mean mean = wholeTurns;
            const std::int64_t reach = k - turns * count;
            for (std::int64_t i = -reach; i <= reach; ++i) {
                const Point q = points[std::size_t(((j + i) % count + count) % count)];
                mean.add(source.clampedAt(q.x, q.y));
            }
            smeared.at(p.x, p.y) = k < 0 ? 0xFF000000u : mean.value();
        }
    }

    Picture target = smeared;
    for (int py = 0; py < source.height; ++py) {
        for (int px = 0; px < source.width; ++px) {
            if (visited[std::size_t(py) * std::size_t(source.width) + std::size_t(px)]) continue;
            Mean mean;
            for (int dx = -2; dx <= 2; ++dx) {
                for (int dy = -2; dy <= 2; ++dy) {
                    mean.add(smeared.clampedAt(px + dx, py + dy), dx == 0 && dy == 0 ? 1 : 3);
                }
            }
            target.at(px, py) = mean.value();
        }
    }
    return target;
}

}  // namespace orvane::reference
