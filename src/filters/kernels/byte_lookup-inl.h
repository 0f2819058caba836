// A table of 256 bytes looked up for every byte of a vector; compiled once per instruction set.
#if defined(ORVANE_FILTERS_KERNELS_BYTE_LOOKUP_INL_H) == defined(HWY_TARGET_TOGGLE)
#ifdef ORVANE_FILTERS_KERNELS_BYTE_LOOKUP_INL_H
#undef ORVANE_FILTERS_KERNELS_BYTE_LOOKUP_INL_H
#else
#define ORVANE_FILTERS_KERNELS_BYTE_LOOKUP_INL_H
#endif

#include <cstddef>
#include <cstdint>

#include "filters/kernels/channel_tables.h"
#include "filters/kernels/map_pixels-inl.h"

HWY_BEFORE_NAMESPACE();
namespace orvane {
namespace HWY_NAMESPACE {

/// Sixteen 16-byte shuffles add up to the lookup. A shuffle answers 0 where the index has its top bit set
/// and else goes by the low four bits. Stepping the index down by 16 with saturation, all steps up to the
/// right one answer; so each table part holds the difference (exclusive or) from the part before it.
///
///     index 37:  37 -> part 0,  21 -> part 1,  5 -> part 2,  -11, -27, ... -> 0
class ByteLookup {
 public:
    explicit ByteLookup(const ByteTable& table) {
        for (std::size_t i = 0; i < table.size(); ++i) {
            const bool firstPart = i % kHalf < kPart;
            differences_[i] = static_cast<std::uint8_t>(table[i] ^ (firstPart ? 0 : table[i - kPart]));
        }
    }

#if HWY_TARGET != HWY_SCALAR
    HWY_INLINE ByteVector operator()(ByteVector indices) const {
        const ByteTag d8;
        const hn::RebindToSigned<ByteTag> di8;
        const auto sixteen = hn::Set(di8, std::int8_t{kPart});
        auto lower = hn::BitCast(di8, indices);  // 0..127 stay non-negative, 128..255 answer 0 throughout
        auto upper = hn::Xor(lower, hn::Set(di8, std::int8_t{-128}));
        auto found = hn::Zero(d8);
        for (std::size_t part = 0; part < kHalf; part += kPart) {
            const auto low = hn::TableLookupBytesOr0(hn::LoadDup128(d8, differences_ + part), inBlock(lower));
            const auto high =
                hn::TableLookupBytesOr0(hn::LoadDup128(d8, differences_ + kHalf + part), inBlock(upper));
            found = hn::Xor(found, hn::Xor(low, high));
            lower = hn::SaturatedSub(lower, sixteen);
            upper = hn::SaturatedSub(upper, sixteen);
        }
        return found;
    }
#endif

 private:
    static constexpr std::size_t kPart = 16, kHalf = 128;

#if HWY_TARGET != HWY_SCALAR
    /// Elsewhere than on x86 the shuffle does not ignore the bits between the top one and the low four.
    static HWY_INLINE ByteVector inBlock(hn::Vec<hn::RebindToSigned<ByteTag>> indices) {
        const ByteTag d8;
        const auto bytes = hn::BitCast(d8, indices);
#if HWY_ARCH_X86 && HWY_TARGET != HWY_EMU128
        return bytes;
#else
        return hn::And(bytes, hn::Set(d8, std::uint8_t{0x8F}));
#endif
    }
#endif

    alignas(16) std::uint8_t differences_[256];
};

}  // namespace HWY_NAMESPACE
}  // namespace orvane
HWY_AFTER_NAMESPACE();

#endif  // include guard per instruction set
