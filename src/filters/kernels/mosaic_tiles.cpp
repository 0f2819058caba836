#include "filters/kernels/mosaic_tiles.h"

#include <algorithm>
#include <vector>

#include "base/truncate.h"
#include "platform/graphics/source_over.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/mosaic_tiles.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/row_writer-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

/// How many tiles have their centre within `length` pixels.
int tilesWithin(int length, int radius) {
    return radius < length ? (length - 1 - radius) / (2 * radius + 1) + 1 : 0;
}

/// The means of one row of tiles after the other.
class TileMeans {
    static constexpr int kChannels = 4;
    /// So many rows of bytes add up to 16 bits.
    static constexpr int kRowsPerBatch = 257;

    struct Sums {
        std::uint32_t channels[kChannels];
    };

 public:
    TileMeans(PixelView source, int radius, int tiles)
        : source_(source),
          radius_(radius),
          side_(2 * radius + 1),
          columns_(std::size_t(source.width) * kChannels),
          sums_(std::size_t(tiles)) {}

    /// The means of the tiles whose first row is `top`.
    void find(int top, std::vector<Argb>& means) {
        std::fill(sums_.begin(), sums_.end(), Sums{});
        const int bottom = side_ > source_.height - top ? source_.height : top + side_;
        for (int y = top; y < bottom; y += kRowsPerBatch) {
            addRows(y, std::min(y + kRowsPerBatch, bottom), 1u);
        }
        const int beyond = side_ - (bottom - top);
        if (beyond > 0) addRows(bottom - 1, bottom, static_cast<std::uint32_t>(beyond));
        for (std::size_t tile = 0; tile < means.size(); ++tile) {
            means[tile] = mean(sums_[tile], source_.at(int(tile) * side_ + radius_, top + radius_));
        }
    }

 private:
    void addRows(int first, int last, std::uint32_t times) {
        std::fill(columns_.begin(), columns_.end(), std::uint16_t{0});
        for (int y = first; y < last; ++y) {
            const auto* HWY_RESTRICT levels = reinterpret_cast<const std::uint8_t*>(source_.row(y));
            std::uint16_t* HWY_RESTRICT columns = columns_.data();
            const std::size_t count = columns_.size();
            for (std::size_t i = 0; i < count; ++i) {
                columns[i] = static_cast<std::uint16_t>(columns[i] + levels[i]);
            }
        }
        for (std::size_t tile = 0; tile < sums_.size(); ++tile) addColumns(sums_[tile], tile, times);
    }

    void addColumns(Sums& sums, std::size_t tile, std::uint32_t times) const {
        const std::size_t width = std::size_t(source_.width), side = std::size_t(side_), left = tile * side;
        const std::size_t inside = std::min(side, width - left);
        const auto beyond = static_cast<std::uint32_t>(side - inside);
        const std::uint16_t* const first = &columns_[left * kChannels];
        const std::uint16_t* const last = &columns_[(width - 1) * kChannels];
        Sums added{};
        for (const std::uint16_t* column = first; column != first + inside * kChannels; column += kChannels) {
            for (int c = 0; c < kChannels; ++c) added.channels[c] += column[c];
        }
        for (int c = 0; c < kChannels; ++c) {
            sums.channels[c] += (added.channels[c] + last[c] * beyond) * times;
        }
    }

    [[nodiscard]] Argb mean(const Sums& sums, Argb centre) const {
        const auto divisor =
            static_cast<std::int32_t>(static_cast<std::uint32_t>(side_) * static_cast<std::uint32_t>(side_)) +
            1;
        const auto channel = [&](int place) {
            const std::uint32_t sum = sums.channels[place] + ((centre >> (8 * place)) & 255u);
            return static_cast<unsigned>(clampToByte(static_cast<std::int32_t>(sum) / divisor));
        };
        return makeOpaque(channel(2), channel(1), channel(0));
    }

    PixelView source_;
    int radius_, side_;
    std::vector<std::uint16_t> columns_;
    std::vector<Sums> sums_;
};

/// Writes rows [top, bottom), all of the same tiles.
void drawTiles(PixelView source, MutablePixelView target, RowWriter& writer, const std::vector<Argb>& colours,
               int side, int top, int bottom) {
    Argb* const row = reinterpret_cast<Argb*>(writer.bytes());
    const std::size_t width = std::size_t(source.width), step = std::size_t(side);
    const std::size_t covered = std::min(width, colours.size() * step);
    bool opaque = true;
    for (std::size_t tile = 0; tile < colours.size(); ++tile) {
        const std::size_t left = tile * step;
        std::fill_n(row + left, std::min(step, width - left), colours[tile]);
        opaque = opaque && alphaOf(colours[tile]) == 255u;
    }
    for (int y = top; y < bottom; ++y) {
        std::copy(source.row(y) + covered, source.row(y) + width, row + covered);
        if (opaque) {
            writer.writeTo(y);
        } else {
            sourceOver(row, source.row(y), target.row(y), covered);
            std::copy(row + covered, row + width, target.row(y) + covered);
        }
    }
}

}  // namespace

void mosaicOf(PixelView source, MutablePixelView target, TileColour colour, int radius) {
    const int side = 2 * radius + 1;
    const int across = tilesWithin(source.width, radius), down = tilesWithin(source.height, radius);
    RowWriter writer(target);
    TileMeans means(source, radius, across);
    std::vector<Argb> colours(std::size_t(across), 0u);
    for (int tile = 0; tile < down; ++tile) {
        const int top = tile * side, bottom = std::min(source.height - top, side) + top;
        if (colour == TileColour::Mean) {
            means.find(top, colours);
        } else {
            for (int i = 0; i < across; ++i) {
                colours[std::size_t(i)] = source.at(i * side + radius, top + radius);
            }
        }
        drawTiles(source, target, writer, colours, side, top, bottom);
    }
    colours.clear();
    if (down * side < source.height) {
        drawTiles(source, target, writer, colours, side, down * side, source.height);
    }
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(mosaicOf);

void mosaicTiles(PixelView source, MutablePixelView target, TileColour colour, int radius) {
    if (radius >= std::min(source.width, source.height)) {
        for (int y = 0; y < source.height; ++y) std::copy_n(source.row(y), source.width, target.row(y));
        return;
    }
    HWY_DYNAMIC_DISPATCH(mosaicOf)(source, target, colour, radius);
}

}  // namespace orvane
#endif
