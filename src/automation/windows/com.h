#pragma once

// The system's header comes first; what follows builds on it.
#include <windows.h>
// clang-format off
#include <oleauto.h>
// clang-format on

#include <utility>

namespace quorvane::automation {

/// An owning pointer to an object of the system's.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  explicit ComPtr(Interface* shared) : object_(shared) {
    if (object_) object_->AddRef();
  }
  static ComPtr adopt(Interface* owned) {
    ComPtr pointer;
    pointer.object_ = owned;
    return pointer;
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  Interface* release() { return std::exchange(object_, nullptr); }
  /// Where a call puts the object that it hands out; this is null before.
  Interface** out() { return &object_; }
  void** outVoid() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

/// The interface of `object`, null when it has none; `object` may be null.
template <class Interface>
ComPtr<Interface> queryFor(IUnknown* object) {
  ComPtr<Interface> found;
  if (object) object->QueryInterface(__uuidof(Interface), found.outVoid());
  return found;
}

/// A VARIANT that is cleared at its end.
class Variant {
 public:
  Variant() { ::VariantInit(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  ~Variant() { ::VariantClear(&value_); }

  VARIANT* operator->() { return &value_; }
  const VARIANT& operator*() const { return value_; }
  VARIANT& operator*() { return value_; }
  VARIANT* address() { return &value_; }

 private:
  VARIANT value_;
};

}  // namespace quorvane::automation
