#pragma once

#include <cstddef>
#include <new>

#include "platform/pixel_memory.h"

namespace orvane {

/// Working memory of one filter: `count` plain values with undefined contents, aligned to 64 bytes. Throws
/// std::bad_alloc, which the filter frame takes as its cue to leave everything as it was.
template <class T>
class Scratch {
 public:
    explicit Scratch(std::size_t count) : bytes_(count * sizeof(T)) {
        if (count > static_cast<std::size_t>(-1) / (2 * sizeof(T))) throw std::bad_alloc();
        data_ = static_cast<T*>(allocatePixelMemory(bytes_ == 0 ? bytes_ = sizeof(T) : bytes_));
        if (data_ == nullptr) throw std::bad_alloc();
    }
    ~Scratch() { freePixelMemory(data_, bytes_); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    [[nodiscard]] T* data() noexcept { return data_; }
    [[nodiscard]] const T* data() const noexcept { return data_; }
    T& operator[](std::size_t i) noexcept { return data_[i]; }
    const T& operator[](std::size_t i) const noexcept { return data_[i]; }

 private:
    std::size_t bytes_;
    T* data_;
};

}  // namespace orvane
