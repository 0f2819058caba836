#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

#include "platform/pixel_memory.h"

namespace orvane {

/// One flag per pixel, all clear at first: a quarter of a picture. Throws std::bad_alloc.
class VisitedMap {
 public:
    explicit VisitedMap(std::size_t pixels)
        : flags(static_cast<std::uint8_t*>(allocatePixelMemory(pixels))), bytes_(pixels) {
        if (flags == nullptr) throw std::bad_alloc();
        std::memset(flags, 0, pixels);
    }
    ~VisitedMap() { freePixelMemory(flags, bytes_); }
    VisitedMap(const VisitedMap&) = delete;
    VisitedMap& operator=(const VisitedMap&) = delete;

    std::uint8_t* const flags;  ///< 1 where visited

 private:
    std::size_t bytes_;
};

}  // namespace orvane
