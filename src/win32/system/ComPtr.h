#pragma once

#include <windows.h>

#include <ole2.h>
#include <utility>

#ifdef __GNUC__
#pragma GCC diagnostic ignored                                                                                 \
    "-Wnon-virtual-dtor" // COM interfaces have no virtual destructor; Release deletes
#endif

namespace quillon {

/// Owns one reference to a COM object, or none. Move-only.
template <typename T>
class ComPtr {
  public:
    ComPtr() = default;
    /// Takes ownership of the caller's reference.
    explicit ComPtr(T* object) : object_(object) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (object_ != nullptr) object_->Release();
    }

    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// For a call that returns a reference through a pointer. Must be empty.
    T** Out() { return &object_; }

  private:
    T* object_ = nullptr;
};

/// Initialises COM for the current thread during its lifetime.
class ComApartment {
  public:
    ComApartment() : good_(SUCCEEDED(OleInitialize(nullptr))) {}
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (good_) OleUninitialize();
    }

  private:
    bool good_;
};

} // namespace quillon
