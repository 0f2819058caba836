#include "platform/graphics/coverage_row.h"

#include <algorithm>
#include <bit>

namespace orvane {
namespace {

constexpr int kFractionBits = 24;
constexpr std::int32_t kWhole = 1 << kFractionBits;
constexpr std::int32_t kNoise = 64;  // what sums may lack: pixels that are half covered by design round up

std::int32_t fixed(double value) { return std::int32_t(value * kWhole); }

std::uint8_t coverageOf(std::uint32_t sum) {
    const auto share = std::uint32_t(std::clamp(std::int32_t(sum), 0, kWhole));
    return std::uint8_t((share * 255 + kWhole / 2 + 255 * kNoise) >> kFractionBits);
}

}  // namespace

CoverageRow::CoverageRow(int width)
    : width_(width),
      blocks_((width + kBlock - 1) / kBlock),
      differences_(std::size_t(width) + 2),
      coverages_(std::size_t(width)),
      touched_(std::size_t(blocks_) / 64 + 1) {}

void CoverageRow::touch(int firstPixel, int lastPixel) noexcept {
    const int last = std::min(lastPixel, width_ - 1) / kBlock;
    for (int block = firstPixel / kBlock; block <= last; ++block) {
        touched_[std::size_t(block / 64)] |= std::uint64_t{1} << (block % 64);
    }
}

bool CoverageRow::isTouched(int block) const noexcept {
    return (touched_[std::size_t(block / 64)] >> (block % 64) & 1) != 0;
}

int CoverageRow::nextTouched(int block) const noexcept {
    std::size_t word = std::size_t(block / 64);
    std::uint64_t bits = touched_[word] >> (block % 64) << (block % 64);
    while (bits == 0 && ++word < touched_.size()) bits = touched_[word];
    return bits == 0 ? blocks_ : std::min(blocks_, int(word) * 64 + std::countr_zero(bits));
}

// Of the pixel in which the edge lies the area right of it is a part, of all following pixels the whole
// height. `across` is where in the pixel the edge lies on an average.
void CoverageRow::addInPixel(double across, std::uint32_t height, int pixel) noexcept {
    const auto toTheLeft = std::uint32_t(std::int32_t(std::int32_t(height) * across));
    differences_[std::size_t(pixel)] += height - toTheLeft;
    differences_[std::size_t(pixel) + 1] += toTheLeft;
}

void CoverageRow::add(double fromX, double toX, double height) noexcept {
    if (toX < fromX) std::swap(fromX, toX);
    const int first = int(fromX), last = int(toX);
    touch(first, last + 1);
    const auto total = std::uint32_t(fixed(height));
    if (first == last || toX - fromX < 1e-9) return addInPixel((fromX + toX) * 0.5 - first, total, first);
    const double perPixel = height / (toX - fromX);
    const auto begin = std::uint32_t(fixed(perPixel * (first + 1 - fromX)));
    addInPixel((fromX - first + 1) * 0.5, begin, first);
    const int between = last - first - 1;
    const std::int32_t each = between > 0 ? fixed(perPixel) : 0, half = each / 2;
    for (int pixel = first + 1; pixel < last; ++pixel) {
        differences_[std::size_t(pixel)] += std::uint32_t(each - half);
        differences_[std::size_t(pixel) + 1] += std::uint32_t(half);
    }
    // The rest, so that nothing is lost by rounding.
    addInPixel((toX - last) * 0.5, total - begin - std::uint32_t(each) * std::uint32_t(between), last);
}

// One pass, and integers, because every sum waits for the one before.
std::uint32_t CoverageRow::coverTouched(int x, int end, std::uint32_t sum) noexcept {
    std::uint32_t* const differences = differences_.data();
    std::uint8_t* const coverages = coverages_.data();
    for (; x < end; ++x) {
        sum += differences[x];
        differences[x] = 0;
        coverages[x] = coverageOf(sum);
    }
    return sum;
}

void CoverageRow::handOut(int y, CoverageSink& sink) noexcept {
    std::uint32_t sum = 0;
    int begun = nextTouched(0) * kBlock;  // coverages from here on are waiting to be handed out
    const auto handOutUntil = [&](int x) {
        if (begun < x) sink.paint(begun, y, &coverages_[std::size_t(begun)], x - begun);
    };
    for (int block = nextTouched(0), next; block < blocks_; block = next) {
        const bool touched = isTouched(block);
        next = touched ? block + 1 : nextTouched(block);
        const int x = block * kBlock, end = std::min(next * kBlock, width_);
        if (touched) {
            sum = coverTouched(x, end, sum);
            continue;
        }
        const std::uint8_t coverage = coverageOf(sum);
        if (coverage > 0 && coverage < 255) {
            std::fill_n(&coverages_[std::size_t(x)], end - x, coverage);
            continue;
        }
        handOutUntil(x);
        if (coverage == 255) sink.paintWhole(x, y, end - x);
        begun = end;
    }
    handOutUntil(width_);
    differences_[std::size_t(width_)] = differences_[std::size_t(width_) + 1] = 0;
    std::fill(touched_.begin(), touched_.end(), 0);
}

}  // namespace orvane
