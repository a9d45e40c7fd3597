#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "vbscript/values/run_context.h"
#include "vbscript/values/time_check.h"

/// Charging what scripts take: runContext.memory.
namespace quorvane::vbs {

inline void MemoryMeter::charge(std::size_t bytes) {
  countWork(bytes);
  if (used + static_cast<std::int64_t>(bytes) > limit) overLimit();
  used += static_cast<std::int64_t>(bytes);
}

/// Counts memory that stands outside of values for as long as it lives.
class MemoryCharge {
 public:
  MemoryCharge() = default;
  explicit MemoryCharge(std::size_t bytes) : bytes_(bytes) { runContext.memory.charge(bytes); }
  MemoryCharge(MemoryCharge&& other) noexcept : bytes_(std::exchange(other.bytes_, 0)) {}
  MemoryCharge& operator=(MemoryCharge&& other) noexcept {
    std::swap(bytes_, other.bytes_);
    return *this;
  }
  ~MemoryCharge() { runContext.memory.release(bytes_); }

  /// Counts `bytes` instead. Throws ScriptError 7 and leaves the count as it was when that is too
  /// much.
  void change(std::size_t bytes) {
    if (bytes > bytes_) {
      runContext.memory.charge(bytes - bytes_);
    } else {
      runContext.memory.release(bytes_ - bytes);
    }
    bytes_ = bytes;
  }
  std::size_t bytes() const { return bytes_; }

 private:
  std::size_t bytes_ = 0;
};

}  // namespace quorvane::vbs
