// A scalar that one thread sets while another reads it to draw: each read and write is
// atomic, with no ordering beyond that. Reading a position or a fill a frame late is harmless;
// a torn or racy read is not.
#pragma once

#include <atomic>

namespace utl {

template <class T> class relaxed {
public:
    relaxed(T value = T()) noexcept : value_(value) {}
    relaxed(const relaxed& other) noexcept : value_(other.load()) {}
    relaxed& operator=(const relaxed& other) noexcept {
        store(other.load());
        return *this;
    }
    relaxed& operator=(T value) noexcept {
        store(value);
        return *this;
    }

    operator T() const noexcept { return load(); }
    T load() const noexcept { return value_.load(std::memory_order_relaxed); }
    void store(T value) noexcept { value_.store(value, std::memory_order_relaxed); }

private:
    std::atomic<T> value_;
};

} // namespace utl
