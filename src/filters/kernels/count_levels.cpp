#include "filters/kernels/count_levels.h"

#include <algorithm>
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/count_levels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/luma-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

/// The luma of each pixel as a byte.
void lumaLevels(const Argb* HWY_RESTRICT pixels, std::uint8_t* HWY_RESTRICT levels, std::size_t count) {
    std::size_t i = 0;
#if HWY_TARGET != HWY_SCALAR
    const hn::Rebind<std::uint8_t, PixelTag> d8;
    for (; i + hn::Lanes(d8) <= count; i += hn::Lanes(d8)) {
        hn::StoreU(hn::DemoteTo(d8, lumaOf(hn::LoadU(PixelTag(), pixels + i))), d8, levels + i);
    }
#endif
    for (; i < count; ++i) levels[i] = static_cast<std::uint8_t>(lumaOf(pixels[i]));
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {
namespace {

HWY_EXPORT(lumaLevels);

/// Neighbouring pixels often have the same level, and a counter that was just written cannot be read back at
/// once; so neighbours count in different tables, which are added up in the end.
template <std::size_t kTables>
class SpreadCounts {
 public:
    void count(std::size_t table, unsigned level) { ++tables_[table][level]; }
    [[nodiscard]] LevelCounts total() const {
        LevelCounts sum{};
        for (const LevelCounts& table : tables_) {
            for (std::size_t level = 0; level < sum.size(); ++level) sum[level] += table[level];
        }
        return sum;
    }

 private:
    LevelCounts tables_[kTables] = {};
};

template <int kShift>
LevelCounts countByte(const Argb* pixels, std::size_t count) {
    constexpr std::size_t kTables = 8;
    SpreadCounts<kTables> counts;
    std::size_t i = 0;
    for (; i + kTables <= count; i += kTables) {
        for (std::size_t table = 0; table < kTables; ++table) {
            counts.count(table, (pixels[i + table] >> kShift) & 255u);
        }
    }
    for (; i < count; ++i) counts.count(0, (pixels[i] >> kShift) & 255u);
    return counts.total();
}

std::uint64_t loadEightBytes(const void* memory) {
    std::uint64_t bytes;
    std::memcpy(&bytes, memory, sizeof bytes);
    return bytes;
}

}  // namespace

LevelCounts countChannel(const Argb* pixels, std::size_t count, int shift) noexcept {
    return shift == 16  ? countByte<16>(pixels, count)
           : shift == 8 ? countByte<8>(pixels, count)
                        : countByte<0>(pixels, count);
}

ChannelCounts countChannels(const Argb* pixels, std::size_t count) noexcept {
    SpreadCounts<2> red, green, blue;
    const auto add = [&](std::size_t table, Argb pixel) {
        red.count(table, redOf(pixel));
        green.count(table, greenOf(pixel));
        blue.count(table, blueOf(pixel));
    };
    std::size_t i = 0;
    for (; i + 2 <= count; i += 2) {
        add(0, pixels[i]);
        add(1, pixels[i + 1]);
    }
    if (i < count) add(0, pixels[i]);
    return {red.total(), green.total(), blue.total()};
}

LevelCounts countLuma(const Argb* pixels, std::size_t count) noexcept {
    constexpr std::size_t kChunk = 4096;
    std::uint8_t levels[kChunk];
    SpreadCounts<8> counts;
    for (std::size_t start = 0; start < count; start += kChunk) {
        const std::size_t length = std::min(kChunk, count - start);
        HWY_DYNAMIC_DISPATCH(lumaLevels)(pixels + start, levels, length);
        std::size_t i = 0;
        for (; i + 8 <= length; i += 8) {
            std::uint64_t eight = loadEightBytes(levels + i);
            for (std::size_t byte = 0; byte < 8; ++byte, eight >>= 8) counts.count(byte, eight & 255u);
        }
        for (; i < length; ++i) counts.count(0, levels[i]);
    }
    return counts.total();
}

}  // namespace orvane
#endif
