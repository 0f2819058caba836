#include "platform/codecs/dib_runs.h"

#include <algorithm>

namespace orvane {
namespace {

constexpr std::uint64_t kAlwaysPlausiblePixels = 1u << 20;
constexpr std::uint64_t kPixelsPerByte = 256;

// After a zero byte; larger numbers count pixels that follow one by one.
enum Escape : unsigned { kEndOfRow = 0, kEndOfPicture = 1, kDelta = 2 };

/// Where the next pixel goes. Columns stop at the right edge, rows may lie below the picture.
class Pen {
 public:
    Pen(MutablePixelView picture, bool topDown) : picture_(picture), topDown_(topDown) {}

    [[nodiscard]] bool isBelowPicture() const { return row_ >= picture_.height; }
    [[nodiscard]] bool isAtEnd() const {
        return isBelowPicture() || (row_ == picture_.height - 1 && column_ == picture_.width);
    }
    void startRow() { moveBy(-column_, 1); }
    void moveBy(int columns, int rows) {
        column_ = std::min(column_ + columns, picture_.width);
        row_ = std::min(row_ + rows, picture_.height);
    }
    /// Room for up to `count` pixels; what does not fit into the row is dropped.
    template <class ColourAt>
    void draw(int count, ColourAt colourAt) {
        count = std::min(count, picture_.width - column_);
        Argb* out = picture_.row(topDown_ ? row_ : picture_.height - 1 - row_) + column_;
        for (int i = 0; i < count; ++i) out[i] = colourAt(i);
        column_ += count;
    }

 private:
    MutablePixelView picture_;
    bool topDown_;
    int column_ = 0, row_ = 0;
};

}  // namespace

bool isPlausibleRunLengthSize(const DibHeader& header) {
    const std::uint64_t pixels = std::uint64_t(header.width) * std::uint64_t(header.height);
    return pixels <= kAlwaysPlausiblePixels + header.pixels.size() * kPixelsPerByte;
}

bool decodeDibRuns(const DibHeader& header, MutablePixelView picture) {
    for (int y = 0; y < picture.height; ++y) std::fill_n(picture.row(y), picture.width, header.palette[0]);

    const bool fourBits = header.coding == DibCoding::RunLength4;
    const auto& palette = header.palette;
    std::span<const std::uint8_t> data = header.pixels;
    Pen pen(picture, header.topDown);
    while (!pen.isBelowPicture()) {
        if (data.size() < 2) return pen.isAtEnd();
        const int count = data[0];
        const unsigned value = data[1];
        data = data.subspan(2);
        if (count > 0) {
            const Argb even = palette[fourBits ? value >> 4 : value];
            const Argb odd = palette[fourBits ? value & 15u : value];
            pen.draw(count, [&](int i) { return i % 2 == 0 ? even : odd; });
        } else if (value == kEndOfRow) {
            pen.startRow();
        } else if (value == kEndOfPicture) {
            return true;
        } else if (value == kDelta) {
            if (data.size() < 2) return pen.isAtEnd();
            pen.moveBy(data[0], data[1]);
            data = data.subspan(2);
        } else {
            const std::size_t bytes = fourBits ? (value + 1) / 2 : value;
            if (data.size() < bytes) return pen.isAtEnd();
            pen.draw(int(value), [&](int i) {
                if (!fourBits) return palette[data[std::size_t(i)]];
                const unsigned pair = data[std::size_t(i) / 2];
                return palette[i % 2 == 0 ? pair >> 4 : pair & 15u];
            });
            data = data.subspan(std::min(data.size(), (bytes + 1) / 2 * 2));
        }
    }
    return true;
}

}  // namespace orvane
