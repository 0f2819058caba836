#pragma once

#include <cstddef>
#include <new>

namespace orvane {

/// Working memory of one filter: `count` plain values with undefined contents, aligned to 64 bytes. Not for
/// whole pictures, which have their pool. Throws std::bad_alloc, which the filter frame takes as its cue to
/// leave everything as it was.
template <class T>
class Scratch {
 public:
    explicit Scratch(std::size_t count)
        : data_(static_cast<T*>(::operator new(bytesFor(count), kAlignment))) {}
    ~Scratch() { ::operator delete(data_, kAlignment); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    [[nodiscard]] T* data() noexcept { return data_; }
    [[nodiscard]] const T* data() const noexcept { return data_; }
    T& operator[](std::size_t i) noexcept { return data_[i]; }
    const T& operator[](std::size_t i) const noexcept { return data_[i]; }

 private:
    static constexpr std::align_val_t kAlignment{64};

    static std::size_t bytesFor(std::size_t count) {
        if (count > static_cast<std::size_t>(-1) / 2 / sizeof(T)) throw std::bad_alloc();
        return count * sizeof(T);
    }

    T* data_;
};

}  // namespace orvane
