#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace orvane {

/// Reads choices from a fuzzer's input, front to back; an exhausted input gives zeros.
class FuzzInput {
 public:
    FuzzInput(const std::uint8_t* bytes, std::size_t size) : rest_(bytes, size) {}

    [[nodiscard]] bool isExhausted() const { return rest_.empty(); }
    template <class T>
    T read() {
        T value{};
        const std::size_t count = rest_.size() < sizeof(T) ? rest_.size() : sizeof(T);
        if (count > 0) std::memcpy(&value, rest_.data(), count);
        rest_ = rest_.subspan(count);
        return value;
    }
    bool flag() { return (read<std::uint8_t>() & 1u) != 0; }
    /// From lowest to highest, both included.
    int inRange(int lowest, int highest) {
        const auto choices = static_cast<std::uint32_t>(highest - lowest) + 1u;
        const std::uint32_t raw = choices <= 256 ? read<std::uint8_t>() : read<std::uint32_t>();
        return lowest + static_cast<int>(raw % choices);
    }
    template <class T, std::size_t N>
    T pick(const T (&values)[N]) {
        return values[static_cast<std::size_t>(inRange(0, int(N) - 1))];
    }

 private:
    std::span<const std::uint8_t> rest_;
};

}  // namespace orvane
