#include "filters/kernels/map_channels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/map_channels.cpp"
#include <hwy/foreach_target.h>

#include "filters/kernels/byte_lookup-inl.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {
namespace {

struct ChannelMap {
    const ChannelTables* tables;
    ByteLookup red, green, blue;

    Argb pixel(Argb p) const {
        return makeOpaque(tables->red[redOf(p)], tables->green[greenOf(p)], tables->blue[blueOf(p)]);
    }
#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE void planes(ByteVector& b, ByteVector& g, ByteVector& r) const {
        b = blue(b);
        g = green(g);
        r = red(r);
    }
#endif
};

}  // namespace

void mapChannels(const Argb* source, Argb* target, std::size_t count, const ChannelTables& tables) {
    mapPixels(source, target, count,
              PlaneWise<ChannelMap>{
                  {&tables, ByteLookup(tables.red), ByteLookup(tables.green), ByteLookup(tables.blue)}});
}

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane {

HWY_EXPORT(mapChannels);

void mapChannels(const Argb* source, Argb* target, std::size_t count, const ChannelTables& tables) noexcept {
    HWY_DYNAMIC_DISPATCH(mapChannels)(source, target, count, tables);
}

}  // namespace orvane
#endif
