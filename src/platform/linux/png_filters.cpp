#include "platform/linux/png_filters.h"

#include <cstdlib>
#include <cstring>

#include "platform/linux/png_format.h"

namespace orvane::png {
namespace {

// Of left, above and aboveLeft, the one nearest to left + above - aboveLeft; ties go in this order. Written
// with selections only: the choice is unpredictable, and a branch here costs more than all the arithmetic.
inline int paethPrediction(int left, int above, int aboveLeft) {
    const int leftDistance = std::abs(above - aboveLeft);
    const int aboveDistance = std::abs(left - aboveLeft);
    const int cornerDistance = std::abs(left + above - 2 * aboveLeft);
    int best = aboveDistance <= cornerDistance ? above : aboveLeft;
    const int smaller = aboveDistance <= cornerDistance ? aboveDistance : cornerDistance;
    best = leftDistance <= smaller ? left : best;
    return best;
}

// The pixel size is a template argument so that the previous pixel stays in registers: every pixel waits for
// the one before it, and the channels in between are what the processor can do side by side.
template <std::size_t N>
void undoSub(std::uint8_t* row, std::size_t rowBytes) {
    std::uint8_t left[N] = {};
    for (std::size_t i = 0; i + N <= rowBytes; i += N)
        for (std::size_t c = 0; c < N; ++c) row[i + c] = left[c] = std::uint8_t(row[i + c] + left[c]);
}

void undoUp(std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes) {
    for (std::size_t i = 0; i < rowBytes; ++i) row[i] = std::uint8_t(row[i] + above[i]);
}

template <std::size_t N>
void undoAverage(std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes) {
    std::uint8_t left[N] = {};
    for (std::size_t i = 0; i + N <= rowBytes; i += N)
        for (std::size_t c = 0; c < N; ++c)
            row[i + c] = left[c] = std::uint8_t(row[i + c] + (left[c] + above[i + c]) / 2);
}

template <std::size_t N>
void undoPaeth(std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes) {
    int left[N] = {}, aboveLeft[N] = {};
    for (std::size_t i = 0; i + N <= rowBytes; i += N)
        for (std::size_t c = 0; c < N; ++c) {
            const int up = above[i + c];
            left[c] = (row[i + c] + paethPrediction(left[c], up, aboveLeft[c])) & 255;
            aboveLeft[c] = up;
            row[i + c] = std::uint8_t(left[c]);
        }
}

template <std::size_t N>
bool undo(std::uint8_t filter, std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes) {
    switch (filter) {
        case kNone:
            return true;
        case kSub:
            undoSub<N>(row, rowBytes);
            return true;
        case kUp:
            undoUp(row, above, rowBytes);
            return true;
        case kAverage:
            undoAverage<N>(row, above, rowBytes);
            return true;
        case kPaeth:
            undoPaeth<N>(row, above, rowBytes);
            return true;
        default:
            return false;
    }
}

// Writes row minus prediction and returns the sum of the differences' magnitudes (as signed bytes). Nothing
// here depends on the previous result, so the compiler turns each instance into vector code.
template <class Predict>
std::uint64_t applyFilter(Filter filter, const std::uint8_t* row, const std::uint8_t* above,
                          std::size_t rowBytes, std::size_t pixelBytes, std::uint8_t* out, Predict predict) {
    *out++ = filter;
    std::uint64_t total = 0;
    const auto put = [&](std::size_t i, int left, int aboveLeft) {
        const auto difference = std::uint8_t(row[i] - predict(left, int(above[i]), aboveLeft));
        out[i] = difference;
        return difference < 128 ? unsigned(difference) : 256u - difference;
    };
    for (std::size_t i = 0; i < pixelBytes; ++i) total += put(i, 0, 0);
    // A block's sum fits 32 bits, which keeps the vector lanes narrow.
    constexpr std::size_t kBlock = 4096;
    for (std::size_t start = pixelBytes; start < rowBytes; start += kBlock) {
        const std::size_t end = start + kBlock < rowBytes ? start + kBlock : rowBytes;
        unsigned sum = 0;
        for (std::size_t i = start; i < end; ++i) sum += put(i, row[i - pixelBytes], above[i - pixelBytes]);
        total += sum;
    }
    return total;
}

}  // namespace

bool undoFilter(std::uint8_t filter, std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes,
                std::size_t pixelBytes) noexcept {
    switch (pixelBytes) {
        case 1:
            return undo<1>(filter, row, above, rowBytes);
        case 2:
            return undo<2>(filter, row, above, rowBytes);
        case 3:
            return undo<3>(filter, row, above, rowBytes);
        case 4:
            return undo<4>(filter, row, above, rowBytes);
        case 6:
            return undo<6>(filter, row, above, rowBytes);
        case 8:
            return undo<8>(filter, row, above, rowBytes);
        default:
            return false;
    }
}

void applyBestFilter(const std::uint8_t* row, const std::uint8_t* above, std::size_t rowBytes,
                     std::size_t pixelBytes, std::uint8_t* out, std::uint8_t* scratch) noexcept {
    std::uint8_t *best = out, *candidate = scratch;
    std::uint64_t bestTotal = ~std::uint64_t{0};
    const auto attempt = [&](Filter filter, auto predict) {
        const std::uint64_t total = applyFilter(filter, row, above, rowBytes, pixelBytes, candidate, predict);
        if (total >= bestTotal) return;
        bestTotal = total;
        std::uint8_t* const previous = best;
        best = candidate;
        candidate = previous;
    };
    attempt(kNone, [](int, int, int) { return 0; });
    attempt(kSub, [](int left, int, int) { return left; });
    attempt(kUp, [](int, int up, int) { return up; });
    attempt(kAverage, [](int left, int up, int) { return (left + up) / 2; });
    attempt(kPaeth, [](int left, int up, int aboveLeft) { return paethPrediction(left, up, aboveLeft); });
    if (best != out) std::memcpy(out, best, 1 + rowBytes);
}

}  // namespace orvane::png
