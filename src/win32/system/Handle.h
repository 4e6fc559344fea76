#pragma once

#include <utility>

namespace quillon {

/// Owns one system handle, or none, and calls `Close` on it exactly once. Move-only.
template <typename T, auto Close, T Empty = T{}>
class Handle {
  public:
    Handle() = default;
    explicit Handle(T handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, Empty)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) Reset(std::exchange(other.handle_, Empty));
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Reset(); }

    T Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Empty; }

    /// Gives up ownership without closing.
    T Release() { return std::exchange(handle_, Empty); }

    void Reset(T handle = Empty) {
        const T old = std::exchange(handle_, handle);
        if (old != Empty) Close(old);
    }

  private:
    T handle_ = Empty;
};

} // namespace quillon
