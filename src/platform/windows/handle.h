#pragma once

#include <windows.h>

#include <utility>

namespace quorvane {

/// A handle of the system's, closed with its owner.
class SystemHandle {
 public:
  SystemHandle() = default;
  explicit SystemHandle(HANDLE handle) : handle_(handle) {}
  SystemHandle(SystemHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  SystemHandle& operator=(SystemHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~SystemHandle() { close(); }

  void close() {
    if (isOpen()) ::CloseHandle(handle_);
    handle_ = nullptr;
  }
  HANDLE get() const { return handle_; }
  bool isOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE handle_ = nullptr;
};

}  // namespace quorvane
