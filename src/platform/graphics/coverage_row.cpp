#include "platform/graphics/coverage_row.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace orvane {
namespace {

std::uint8_t coverageOf(float sum) { return std::uint8_t(std::clamp(sum, 0.0f, 1.0f) * 255.0f + 0.5f); }

float sumUp(float* values, int count, float sum) {
    for (int i = 0; i < count; ++i) values[i] = sum += values[i];
    return sum;
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
// height.
void CoverageRow::addInPixel(double fromX, double toX, double height, int pixel) noexcept {
    const double toTheLeft = height * ((fromX + toX) * 0.5 - pixel);
    differences_[std::size_t(pixel)] += float(height - toTheLeft);
    differences_[std::size_t(pixel) + 1] += float(toTheLeft);
}

void CoverageRow::add(double fromX, double toX, double height) noexcept {
    if (toX < fromX) std::swap(fromX, toX);
    const int first = int(fromX), last = int(toX);
    touch(first, last + 1);
    if (first == last || toX - fromX < 1e-9) return addInPixel(fromX, toX, height, first);
    const double perPixel = height / (toX - fromX);
    addInPixel(fromX, first + 1, perPixel * (first + 1 - fromX), first);
    for (int pixel = first + 1; pixel < last; ++pixel) addInPixel(pixel, pixel + 1, perPixel, pixel);
    if (toX > last) addInPixel(last, toX, perPixel * (toX - last), last);
}

void CoverageRow::handOut(int y, CoverageSink& sink) noexcept {
    float sum = 0;
    int begun = nextTouched(0) * kBlock;  // coverages from here on are waiting to be handed out
    const auto handOutUntil = [&](int x) {
        if (begun < x) sink.paint(begun, y, &coverages_[std::size_t(begun)], x - begun);
    };
    for (int block = nextTouched(0), next; block < blocks_; block = next) {
        const bool touched = isTouched(block);
        next = touched ? block + 1 : nextTouched(block);
        const int x = block * kBlock, end = std::min(next * kBlock, width_);
        if (touched) {
            sum = sumUp(&differences_[std::size_t(x)], end - x, sum);
            std::transform(&differences_[std::size_t(x)], &differences_[std::size_t(x)] + (end - x),
                           &coverages_[std::size_t(x)], coverageOf);
            std::fill_n(&differences_[std::size_t(x)], end - x, 0.0f);
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
