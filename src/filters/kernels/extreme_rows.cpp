#include "filters/kernels/extreme_rows.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "filters/kernels/extreme_rows.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace orvane::extreme_rows::HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

using Bytes = hn::ScalableTag<std::uint8_t>;
using OneWord = hn::CappedTag<std::uint8_t, 4>;  // or a single byte, where there are no vectors

struct Minimum {
    template <class V>
    HWY_INLINE V operator()(V a, V b) const {
        return hn::Min(a, b);
    }
};

struct Maximum {
    template <class V>
    HWY_INLINE V operator()(V a, V b) const {
        return hn::Max(a, b);
    }
};

template <class Body>
HWY_INLINE void withExtreme(Extreme extreme, const Body& body) {
    if (extreme == Extreme::Minimum) {
        body(Minimum());
    } else {
        body(Maximum());
    }
}

HWY_INLINE const std::uint8_t* bytesOf(const Argb* row) { return reinterpret_cast<const std::uint8_t*>(row); }
HWY_INLINE std::uint8_t* bytesOf(Argb* row) { return reinterpret_cast<std::uint8_t*>(row); }

// Calls body(tag, i) for consecutive bytes: whole vectors, then the rest word by word. Where there is a whole
// vector, another one that ends with the last byte does the rest; bytes are then written twice, which `body`
// must allow.
template <class Body>
HWY_INLINE void forEachVector(std::size_t wordCount, const Body& body) {
    const Bytes bytes;
    const OneWord oneWord;
    const std::size_t count = wordCount * sizeof(Argb), lanes = hn::Lanes(bytes);
    std::size_t i = 0;
    for (; i + lanes <= count; i += lanes) body(bytes, i);
    if (i == count) return;
    if (count >= lanes) {
        body(bytes, count - lanes);
    } else {
        for (; i < count; i += hn::Lanes(oneWord)) body(oneWord, i);
    }
}

template <class D>
HWY_INLINE hn::Vec<D> opaque(D d, std::size_t i) {
#if HWY_TARGET == HWY_SCALAR
    return hn::Set(d, std::uint8_t((i & 3) == 3 ? 255 : 0));
#else
    (void)i;
    return hn::BitCast(d, hn::Set(hn::Repartition<std::uint32_t, D>(), 0xFF000000u));
#endif
}

// Fetches the cache line that byte i lies in, once when i goes from vector to vector.
template <class D>
HWY_INLINE void prefetch(D d, const Argb* row, std::size_t i) {
    if (row != nullptr && i % 64 < hn::Lanes(d)) hwy::Prefetch(bytesOf(row) + i);
}

// The extreme of `kSpans` overlapping spans of `span` bytes, the last of which ends with the window.
template <int kSpans, class Pick>
struct Spans {
    const std::uint8_t* row;
    std::size_t span, window;

    template <class D>
    HWY_INLINE hn::Vec<D> operator()(D d, std::size_t i) const {
        const Pick pick;
        auto extreme = hn::LoadU(d, row + i);
        if constexpr (kSpans > 2) extreme = pick(extreme, hn::LoadU(d, row + i + span));
        if constexpr (kSpans > 3) extreme = pick(extreme, hn::LoadU(d, row + i + 2 * span));
        if constexpr (kSpans > 1) extreme = pick(extreme, hn::LoadU(d, row + i + window - span));
        return hn::Or(extreme, opaque(d, i));
    }
};

template <class Source>
HWY_INLINE void storeRow(const Source& source, Argb* target, std::size_t count, bool streamed,
                         const Argb* ahead) {
    std::uint8_t* const bytes = bytesOf(target);
    const Bytes d;
    const std::size_t lanes = hn::Lanes(d), end = count * sizeof(Argb);
    if (!streamed || end < 2 * lanes) {
        forEachVector(count, [&](auto tag, std::size_t i) HWY_ATTR {
            hn::StoreU(source(tag, i), tag, bytes + i);
            prefetch(tag, ahead, i);
        });
        return;
    }
    hn::StoreU(source(d, 0), d, bytes);
    std::size_t i = lanes - reinterpret_cast<std::uintptr_t>(bytes) % lanes;
    for (; i + lanes <= end; i += lanes) {
        hn::Stream(source(d, i), d, bytes + i);
        prefetch(d, ahead, i);
    }
    hn::StoreU(source(d, end - lanes), d, bytes + end - lanes);
}

template <class Pick>
HWY_INLINE void slideWith(Pick pick, const Argb* row, Argb* scratch, std::size_t window, Argb* target,
                          std::size_t count, bool streamed, const Argb* ahead) {
    const Bytes d;
    constexpr std::size_t kWord = sizeof(Argb);
    const std::uint8_t* from = bytesOf(row);
    std::uint8_t* const to = bytesOf(scratch);
    std::size_t span = 1;
    // Each pass widens what a word stands for to four times as much. Words are replaced only after all that
    // need them have read them, so the passes after the first one work in place.
    while (window > 4 * span) {
        const std::size_t needed = (count + window - 4 * span) * kWord, step = span * kWord;
        for (std::size_t i = 0; i < needed; i += hn::Lanes(d)) {
            const auto first = pick(hn::LoadU(d, from + i), hn::LoadU(d, from + i + step));
            const auto second = pick(hn::LoadU(d, from + i + 2 * step), hn::LoadU(d, from + i + 3 * step));
            hn::StoreU(pick(first, second), d, to + i);
        }
        from = to;
        span *= 4;
    }
    const std::size_t spanBytes = span * kWord, windowBytes = window * kWord;
    if (window <= span) {
        storeRow(Spans<1, Pick>{from, spanBytes, windowBytes}, target, count, streamed, ahead);
    } else if (window <= 2 * span) {
        storeRow(Spans<2, Pick>{from, spanBytes, windowBytes}, target, count, streamed, ahead);
    } else if (window <= 3 * span) {
        storeRow(Spans<3, Pick>{from, spanBytes, windowBytes}, target, count, streamed, ahead);
    } else {
        storeRow(Spans<4, Pick>{from, spanBytes, windowBytes}, target, count, streamed, ahead);
    }
}

}  // namespace

void Combine(Extreme extreme, const Argb* a, const Argb* b, Argb* target, std::size_t count) {
    withExtreme(extreme, [=](auto pick) HWY_ATTR {
        forEachVector(count, [=](auto d, std::size_t i) HWY_ATTR {
            const auto first = hn::LoadU(d, bytesOf(a) + i), second = hn::LoadU(d, bytesOf(b) + i);
            hn::StoreU(pick(first, second), d, bytesOf(target) + i);
        });
    });
}

void CombineTwice(Extreme extreme, const Argb* row, const Argb* running, Argb* newRunning, const Argb* other,
                  Argb* target, std::size_t count) {
    withExtreme(extreme, [=](auto pick) HWY_ATTR {
        forEachVector(count, [=](auto d, std::size_t i) HWY_ATTR {
            const auto now = pick(hn::LoadU(d, bytesOf(row) + i), hn::LoadU(d, bytesOf(running) + i));
            hn::StoreU(now, d, bytesOf(newRunning) + i);
            hn::StoreU(pick(now, hn::LoadU(d, bytesOf(other) + i)), d, bytesOf(target) + i);
        });
    });
}

void Slide(Extreme extreme, const Argb* row, Argb* scratch, std::size_t window, Argb* target,
           std::size_t count, bool streamed, const Argb* ahead) {
    withExtreme(extreme, [=](auto pick) HWY_ATTR {
        slideWith(pick, row, scratch, window, target, count, streamed, ahead);
    });
}

void Subtract(const Argb* a, const Argb* b, Argb* target, std::size_t count) {
    forEachVector(count, [=](auto d, std::size_t i) HWY_ATTR {
        const auto first = hn::LoadU(d, bytesOf(a) + i), second = hn::LoadU(d, bytesOf(b) + i);
        hn::StoreU(hn::Sub(first, second), d, bytesOf(target) + i);
    });
}

}  // namespace orvane::extreme_rows::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace orvane::extreme_rows {

HWY_EXPORT(Combine);
HWY_EXPORT(CombineTwice);
HWY_EXPORT(Slide);
HWY_EXPORT(Subtract);

void combine(Extreme extreme, const Argb* a, const Argb* b, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(Combine)(extreme, a, b, target, count);
}

void combineTwice(Extreme extreme, const Argb* row, const Argb* running, Argb* newRunning, const Argb* other,
                  Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(CombineTwice)(extreme, row, running, newRunning, other, target, count);
}

void slide(Extreme extreme, const Argb* row, Argb* scratch, std::size_t window, Argb* target,
           std::size_t count, bool streamed, const Argb* ahead) noexcept {
    HWY_DYNAMIC_DISPATCH(Slide)(extreme, row, scratch, window, target, count, streamed, ahead);
}

void subtract(const Argb* a, const Argb* b, Argb* target, std::size_t count) noexcept {
    HWY_DYNAMIC_DISPATCH(Subtract)(a, b, target, count);
}

}  // namespace orvane::extreme_rows
#endif  // HWY_ONCE
