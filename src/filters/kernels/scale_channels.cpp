#include "filters/kernels/scale_channels.h"

#include <algorithm>
#include <cmath>

#include "base/truncate.h"
#include "filters/kernels/fixed_slope.h"
#include "filters/kernels/map_channels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/scale_channels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/fixed_slope-inl.h"
#include "filters/kernels/map_pixels-inl.h"

#ifndef ORVANE_FILTERS_KERNELS_SCALE_CHANNELS_ONCE
#define ORVANE_FILTERS_KERNELS_SCALE_CHANNELS_ONCE
namespace orvane {
namespace {

struct FixedLine {
    FixedSlope slope;
    std::int16_t offset = 0;

    int at(int channel) const { return clampToByte(slope.times(channel) + offset); }
};

struct FixedLines {
    FixedLine red, green, blue;
};

}  // namespace
}  // namespace orvane
#endif

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct LineMap {
    FixedLines lines;

    Argb pixel(Argb p) const {
        const auto at = [](const FixedLine& line, unsigned channel) {
            return static_cast<unsigned>(line.at(static_cast<int>(channel)));
        };
        return makeOpaque(at(lines.red, redOf(p)), at(lines.green, greenOf(p)), at(lines.blue, blueOf(p)));
    }

#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE PixelVector words(PixelVector p) const {
        // In the lane of alpha, the line is constant.
        static constexpr FixedLine kOpaqueLine{{0, 0}, 255};
        return pixelsFrom(pairAt(lines.blue, lines.red, blueRedOf(p)),
                          pairAt(lines.green, kOpaqueLine, greenAlphaOf(p)));
    }

    static HWY_INLINE WideVector pairAt(const FixedLine& low, const FixedLine& high, WideVector channels) {
        const auto product = timesSlope(channels, setPairs(low.slope.whole, high.slope.whole),
                                        setPairs(low.slope.fraction, high.slope.fraction));
        return clampedSum(product, setPairs(static_cast<std::uint16_t>(low.offset),
                                            static_cast<std::uint16_t>(high.offset)));
    }
#endif
};

}  // namespace

void mapAlongLines(const Argb* source, Argb* target, std::size_t count, const FixedLines& lines) {
    mapPixels(source, target, count, WordWise<LineMap>{{lines}});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {
namespace {

HWY_EXPORT(mapAlongLines);

ByteTable tableOf(const ChannelLine& line) {
    // The whole numbers stay in double precision, where the sum of two of them cannot overflow.
    return makeByteTable([&line](int channel) {
        return static_cast<int>(std::clamp(std::trunc(channel * line.slope) + line.offset, 0.0, 255.0));
    });
}

/// Sets `fixed` to the line in 16-bit arithmetic; false when it differs from the table somewhere.
bool fitLine(const ChannelLine& line, const ByteTable& table, FixedLine& fixed) {
    const auto slope = FixedSlope::from(line.slope);
    if (!slope) return false;
    fixed = {*slope, static_cast<std::int16_t>(std::clamp(line.offset, -32768.0, 32767.0))};
    for (int channel = 0; channel < 256; ++channel) {
        if (fixed.at(channel) != table[std::size_t(channel)]) return false;
    }
    return true;
}

}  // namespace

void scaleChannels(const Argb* source, Argb* target, std::size_t count, const ChannelLines& lines) noexcept {
    const ChannelTables tables{tableOf(lines.red), tableOf(lines.green), tableOf(lines.blue)};
    FixedLines fixed;
    if (fitLine(lines.red, tables.red, fixed.red) && fitLine(lines.green, tables.green, fixed.green) &&
        fitLine(lines.blue, tables.blue, fixed.blue)) {
        HWY_DYNAMIC_DISPATCH(mapAlongLines)(source, target, count, fixed);
    } else {
        mapChannels(source, target, count, tables);
    }
}

}  // namespace orvane
#endif
