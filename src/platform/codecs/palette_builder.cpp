#include "platform/codecs/palette_builder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <queue>

#include "platform/codecs/nearest_colour.h"

namespace orvane {
namespace {

constexpr int kRefinements = 6;

/// Colours that share their upper bits (5 of red, 6 of green, 5 of blue), as their mean and their number.
struct Cluster {
    std::array<std::uint8_t, 3> cell{};  ///< those upper bits
    std::array<double, 3> mean{};
    double count = 0;
};
constexpr std::size_t kMaxCellsPerAxis = 64;

std::vector<Cluster> collectClusters(PixelView picture, unsigned leastAlpha) {
    struct Sums {
        std::uint64_t count = 0, red = 0, green = 0, blue = 0;
    };
    std::vector<Sums> cells(1u << 16);
    for (int y = 0; y < picture.height; ++y) {
        const Argb* row = picture.row(y);
        for (int x = 0; x < picture.width; ++x) {
            const Argb p = row[x];
            if (alphaOf(p) < leastAlpha) continue;
            Sums& cell = cells[(p >> 8 & 0xf800u) | (p >> 5 & 0x7e0u) | (p >> 3 & 0x1fu)];
            ++cell.count;
            cell.red += redOf(p);
            cell.green += greenOf(p);
            cell.blue += blueOf(p);
        }
    }
    std::vector<Cluster> clusters;
    for (std::uint32_t i = 0; i < cells.size(); ++i) {
        const Sums& cell = cells[i];
        if (cell.count == 0) continue;
        const double count = double(cell.count);
        clusters.push_back({{std::uint8_t(i >> 11), std::uint8_t(i >> 5 & 63u), std::uint8_t(i & 31u)},
                            {double(cell.red) / count, double(cell.green) / count, double(cell.blue) / count},
                            count});
    }
    return clusters;
}

/// Sums over a set of clusters, from which its mean and its squared error follow.
struct Moments {
    double count = 0;
    std::array<double, 3> sums{};

    void add(const Moments& other) {
        count += other.count;
        for (std::size_t c = 0; c < 3; ++c) sums[c] += other.sums[c];
    }
    void add(const Cluster& cluster) {
        count += cluster.count;
        for (std::size_t c = 0; c < 3; ++c) sums[c] += cluster.mean[c] * cluster.count;
    }
    /// The part of the squared error that depends on how clusters are grouped: the larger, the better.
    [[nodiscard]] double concentration() const {
        double total = 0;
        for (std::size_t c = 0; c < 3; ++c) total += kColourWeights[c] * sums[c] * sums[c];
        return count > 0 ? total / count : 0;
    }
    [[nodiscard]] Argb mean() const {
        const auto channel = [this](std::size_t c) { return unsigned(std::lround(sums[c] / count)); };
        return makeOpaque(channel(0), channel(1), channel(2));
    }
};

/// A range of clusters and the best way to cut it in two across one axis.
struct Box {
    std::size_t begin = 0, end = 0;
    Moments moments;
    double gain = 0;  ///< squared error that the cut saves; 0 when there is nothing to cut
    std::size_t axis = 0, firstRightCell = 0;

    bool operator<(const Box& other) const { return gain < other.gain; }
};

class BoxCutter {
 public:
    explicit BoxCutter(std::vector<Cluster> clusters) : clusters_(std::move(clusters)) {}

    [[nodiscard]] std::vector<Argb> cut(std::size_t boxCount) {
        std::priority_queue<Box> boxes;
        boxes.push(measured(0, clusters_.size()));
        while (boxes.size() < boxCount && boxes.top().gain > 0) {
            const Box box = boxes.top();
            boxes.pop();
            const std::size_t middle = divide(box);
            boxes.push(measured(box.begin, middle));
            boxes.push(measured(middle, box.end));
        }
        std::vector<Argb> palette;
        for (; !boxes.empty(); boxes.pop()) palette.push_back(boxes.top().moments.mean());
        return palette;
    }

    /// Moves every colour to the mean of what is closest to it.
    void refine(std::vector<Argb>& palette) const {
        std::vector<Moments> groups(palette.size());
        NearestColour nearest(palette);
        for (const Cluster& cluster : clusters_) {
            const auto channel = [&](std::size_t c) { return int(std::lround(cluster.mean[c])); };
            groups[std::size_t(nearest.find(channel(0), channel(1), channel(2)))].add(cluster);
        }
        for (std::size_t i = 0; i < palette.size(); ++i) {
            if (groups[i].count > 0) palette[i] = groups[i].mean();
        }
    }

 private:
    [[nodiscard]] std::size_t divide(const Box& box) {
        const auto begin = clusters_.begin();
        const auto middle = std::partition(
            begin + std::ptrdiff_t(box.begin), begin + std::ptrdiff_t(box.end),
            [&](const Cluster& cluster) { return cluster.cell[box.axis] < box.firstRightCell; });
        return std::size_t(middle - begin);
    }

    [[nodiscard]] Box measured(std::size_t begin, std::size_t end) const {
        std::array<std::array<Moments, kMaxCellsPerAxis>, 3> slices{};
        Box box{begin, end, {}};
        for (std::size_t i = begin; i < end; ++i) {
            box.moments.add(clusters_[i]);
            for (std::size_t axis = 0; axis < 3; ++axis)
                slices[axis][clusters_[i].cell[axis]].add(clusters_[i]);
        }
        const double whole = box.moments.concentration();
        for (std::size_t axis = 0; axis < 3; ++axis) {
            Moments left, right;
            for (std::size_t cell = 0; cell + 1 < kMaxCellsPerAxis; ++cell) {
                if (slices[axis][cell].count == 0) continue;
                left.add(slices[axis][cell]);
                right.count = box.moments.count - left.count;
                if (right.count <= 0) break;
                for (std::size_t c = 0; c < 3; ++c) right.sums[c] = box.moments.sums[c] - left.sums[c];
                const double gain = left.concentration() + right.concentration() - whole;
                if (gain > box.gain) {
                    box.gain = gain;
                    box.axis = axis;
                    box.firstRightCell = cell + 1;
                }
            }
        }
        return box;
    }

    std::vector<Cluster> clusters_;
};

}  // namespace

std::vector<Argb> buildPalette(PixelView picture, int maximumColours, unsigned leastAlpha) {
    std::vector<Cluster> clusters = collectClusters(picture, leastAlpha);
    if (clusters.empty()) return {};
    BoxCutter cutter(std::move(clusters));
    std::vector<Argb> palette = cutter.cut(std::size_t(maximumColours));
    for (int i = 0; i < kRefinements; ++i) cutter.refine(palette);
    return palette;
}

}  // namespace orvane
