#include "vbscript/values/run_context.h"

#include <atomic>
#include <cstdlib>

#include "vbscript/values/error.h"

namespace quorvane::vbs {

void MemoryMeter::overLimit() {
  throwError(ErrorCode::OutOfMemory);
}

std::size_t RunParts::takePlace() {
  static std::atomic<std::size_t> taken{0};
  const std::size_t place = taken++;
  if (place >= kMost) std::abort();  // a new kind of part: there must be room for all
  return place;
}

}  // namespace quorvane::vbs
