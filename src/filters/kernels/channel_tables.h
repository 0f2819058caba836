#pragma once

#include <array>
#include <cstdint>

namespace orvane {

/// The new value of a channel for each of its 256 old values.
using ByteTable = std::array<std::uint8_t, 256>;

/// One table per colour channel.
struct ChannelTables {
    ByteTable red, green, blue;
};

/// Fills a table from a function of the old value (0..255) that returns the new one (0..255).
template <class NewValue>
constexpr ByteTable makeByteTable(NewValue&& newValue) {
    ByteTable table{};
    for (int value = 0; value < 256; ++value) {
        table[std::size_t(value)] = static_cast<std::uint8_t>(newValue(value));
    }
    return table;
}

}  // namespace orvane
