#pragma once

#include <cstddef>
#include <cstdint>

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
  explicit MemoryCharge(std::size_t bytes) : bytes_(bytes) { runContext.memory.charge(bytes); }
  MemoryCharge(const MemoryCharge&) = delete;
  MemoryCharge& operator=(const MemoryCharge&) = delete;
  ~MemoryCharge() { runContext.memory.release(bytes_); }

 private:
  std::size_t bytes_;
};

}  // namespace quorvane::vbs
