#include <cstddef>
#include <cstdint>

#include "sql_targets.h"

namespace quorvane {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzSql({reinterpret_cast<const char*>(data), size});
  return 0;
}

}  // namespace quorvane
