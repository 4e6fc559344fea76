#pragma once

#include <windows.h>

#include <ole2.h>
#include <utility>

namespace quillon {

/// Owner of one reference to a COM object. Move-only; empty when there is no object.
template <typename T>
class ComPtr {
  public:
    ComPtr() = default;
    /// Takes over a reference that the caller has.
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

    /// Where a call puts the reference it hands out. The owner must be empty.
    T** Out() { return &object_; }

  private:
    T* object_ = nullptr;
};

/// COM for the thread that makes it, for as long as it lives.
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
