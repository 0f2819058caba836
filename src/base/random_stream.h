#pragma once

#include <atomic>
#include <cstdint>

namespace orvane {

/// The linear congruential generator behind `Noise`, `Diffuse` and the spray tool:
/// state = state * 214013 + 2531011 modulo 2^32, each draw (state >> 16) & 0x7fff, initial state 1.
class RandomStream {
 public:
    static constexpr std::uint32_t kMultiplier = 214013u;
    static constexpr std::uint32_t kIncrement = 2531011u;
    static constexpr int kMaximum = 32767;

    explicit constexpr RandomStream(std::uint32_t state = 1u) : state_(state) {}

    [[nodiscard]] constexpr std::uint32_t state() const { return state_; }
    /// The next draw, uniform in 0..32767.
    constexpr int next() {
        state_ = state_ * kMultiplier + kIncrement;
        return int((state_ >> 16) & 0x7fffu);
    }

    /// `count` draws at once: state -> multiplier * state + increment.
    struct Jump {
        std::uint32_t multiplier = 1u, increment = 0u;
        [[nodiscard]] constexpr std::uint32_t apply(std::uint32_t state) const {
            return state * multiplier + increment;
        }
    };
    /// The affine map of `count` draws, by repeated squaring (O(log count)).
    [[nodiscard]] static constexpr Jump jump(std::uint64_t count) {
        Jump result, step{kMultiplier, kIncrement};
        for (; count != 0; count >>= 1) {
            if (count & 1u) {
                result = {result.multiplier * step.multiplier,
                          result.increment * step.multiplier + step.increment};
            }
            step = {step.multiplier * step.multiplier, step.increment * step.multiplier + step.increment};
        }
        return result;
    }
    constexpr void skip(std::uint64_t count) { state_ = jump(count).apply(state_); }

 private:
    std::uint32_t state_;
};

/// The one stream that all controls of a process share; it continues from one user to the next. A user takes
/// a copy of the stream, draws from it, and gives it back when its command has succeeded.
/// Controls on several threads may draw at once: nothing breaks, though their draws may then coincide.
class SharedRandomStream {
 public:
    [[nodiscard]] static RandomStream take() noexcept {
        return RandomStream(state().load(std::memory_order_relaxed));
    }
    static void giveBack(const RandomStream& stream) noexcept {
        state().store(stream.state(), std::memory_order_relaxed);
    }

 private:
    static std::atomic<std::uint32_t>& state() noexcept {
        static std::atomic<std::uint32_t> shared{1u};
        return shared;
    }
};

}  // namespace orvane
