#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Sorting networks worked out by the compiler: lists of comparators, each of which puts the lesser of two
/// wires on the one and the greater on the other. After Batcher: two sorted lists are merged by merging their
/// even and odd places apart and then comparing neighbours. What no wanted output depends on is left out.
namespace orvane {

struct Comparator {
    std::uint8_t low = 0, high = 0;
    bool keepsMinimum = false, keepsMaximum = false;
};

/// `outputs` names the wires that hold the wanted ranks, in ascending order.
template <std::size_t kWires, std::size_t kOutputs>
struct SortingNetwork {
    std::array<Comparator, kWires * 8> comparators{};
    std::size_t size = 0;
    std::array<std::uint8_t, kOutputs> outputs{};
};

namespace sorting {

template <std::size_t kWires>
struct WireList {
    std::array<std::uint8_t, kWires> wires{};
    std::size_t size = 0;
    constexpr void add(std::size_t wire) { wires[size++] = std::uint8_t(wire); }
    [[nodiscard]] constexpr WireList everyOther(std::size_t from) const {
        WireList list;
        for (; from < size; from += 2) list.add(wires[from]);
        return list;
    }
};

template <std::size_t kWires, std::size_t kOutputs>
constexpr void compare(SortingNetwork<kWires, kOutputs>& network, std::size_t low, std::size_t high) {
    network.comparators[network.size++] = {std::uint8_t(low), std::uint8_t(high), true, true};
}

template <std::size_t kWires, std::size_t kOutputs>
constexpr WireList<kWires> merge(SortingNetwork<kWires, kOutputs>& network, const WireList<kWires>& a,
                                 const WireList<kWires>& b) {
    if (a.size == 0) return b;
    if (b.size == 0) return a;
    WireList<kWires> merged;
    if (a.size == 1 && b.size == 1) {
        compare(network, a.wires[0], b.wires[0]);
        merged.add(a.wires[0]);
        merged.add(b.wires[0]);
        return merged;
    }
    const auto even = merge(network, a.everyOther(0), b.everyOther(0));
    const auto odd = merge(network, a.everyOther(1), b.everyOther(1));
    merged.add(even.wires[0]);
    for (std::size_t i = 0; i < odd.size; ++i) {
        if (i + 1 < even.size) compare(network, odd.wires[i], even.wires[i + 1]);
        merged.add(odd.wires[i]);
        if (i + 1 < even.size) merged.add(even.wires[i + 1]);
    }
    if (even.size > odd.size + 1) merged.add(even.wires[odd.size + 1]);
    return merged;
}

template <std::size_t kWires, std::size_t kOutputs>
constexpr WireList<kWires> sort(SortingNetwork<kWires, kOutputs>& network, const WireList<kWires>& list) {
    if (list.size < 2) return list;
    WireList<kWires> half[2];
    for (std::size_t i = 0; i < list.size; ++i) half[i < list.size / 2 ? 0 : 1].add(list.wires[i]);
    return merge(network, sort(network, half[0]), sort(network, half[1]));
}

/// Keeps the ranks from `firstRank` on and what they depend on.
template <std::size_t kWires, std::size_t kOutputs>
constexpr void keepRanks(SortingNetwork<kWires, kOutputs>& network, const WireList<kWires>& sorted,
                         std::size_t firstRank) {
    std::array<bool, kWires> wanted{};
    for (std::size_t i = 0; i < kOutputs; ++i) {
        network.outputs[i] = sorted.wires[firstRank + i];
        wanted[network.outputs[i]] = true;
    }
    for (std::size_t i = network.size; i-- > 0;) {
        Comparator& c = network.comparators[i];
        c.keepsMinimum = wanted[c.low];
        c.keepsMaximum = wanted[c.high];
        if (c.keepsMinimum || c.keepsMaximum) wanted[c.low] = wanted[c.high] = true;
    }
}

}  // namespace sorting

/// Sorts kWires values.
template <std::size_t kWires>
constexpr SortingNetwork<kWires, kWires> sortingNetwork() {
    SortingNetwork<kWires, kWires> network;
    sorting::WireList<kWires> all;
    for (std::size_t i = 0; i < kWires; ++i) all.add(i);
    sorting::keepRanks(network, sorting::sort(network, all), 0);
    return network;
}

/// From two ascending lists, on wires 0 .. kA - 1 and from kA on, the kCount values of both that are of ranks
/// kFirst, kFirst + 1 ..., counted from 0.
template <std::size_t kA, std::size_t kB, std::size_t kFirst, std::size_t kCount>
constexpr SortingNetwork<kA + kB, kCount> mergingNetwork() {
    SortingNetwork<kA + kB, kCount> network;
    sorting::WireList<kA + kB> a, b;
    for (std::size_t i = 0; i < kA; ++i) a.add(i);
    for (std::size_t i = 0; i < kB; ++i) b.add(kA + i);
    sorting::keepRanks(network, sorting::merge(network, a, b), kFirst);
    return network;
}

}  // namespace orvane
