#include "filters/kernels/map_grey_levels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/map_grey_levels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/byte_lookup-inl.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct GreyMap {
    const ChannelTables* tables;
    ByteLookup red, green, blue;

    Argb pixel(Argb p) const {
        const unsigned grey = (redOf(p) + greenOf(p) + blueOf(p)) / 3;
        return makeOpaque(tables->red[grey], tables->green[grey], tables->blue[grey]);
    }

#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE void planes(ByteVector& b, ByteVector& g, ByteVector& r) const {
        const hn::Repartition<std::uint16_t, ByteTag> d16;
        const auto b16 = hn::BitCast(d16, b), g16 = hn::BitCast(d16, g), r16 = hn::BitCast(d16, r);
        const auto lowByte = hn::Set(d16, std::uint16_t{255});
        const auto third = hn::Set(d16, std::uint16_t{21846});  // of 65536; exact for sums up to 765
        const auto even = hn::MulHigh(
            hn::Add(hn::Add(hn::And(b16, lowByte), hn::And(g16, lowByte)), hn::And(r16, lowByte)), third);
        const auto odd = hn::MulHigh(
            hn::Add(hn::Add(hn::ShiftRight<8>(b16), hn::ShiftRight<8>(g16)), hn::ShiftRight<8>(r16)), third);
        const auto grey = hn::BitCast(ByteTag(), hn::Or(even, hn::ShiftLeft<8>(odd)));
        b = blue(grey);
        g = green(grey);
        r = red(grey);
    }
#endif
};

}  // namespace

void mapGreyLevels(const Argb* source, Argb* target, std::size_t count, const ChannelTables& tables) {
    mapPixels(source, target, count,
              PlaneWise<GreyMap>{
                  {&tables, ByteLookup(tables.red), ByteLookup(tables.green), ByteLookup(tables.blue)}});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(mapGreyLevels);

void mapGreyLevels(const Argb* source, Argb* target, std::size_t count,
                   const ChannelTables& tables) noexcept {
    HWY_DYNAMIC_DISPATCH(mapGreyLevels)(source, target, count, tables);
}

}  // namespace orvane
#endif
