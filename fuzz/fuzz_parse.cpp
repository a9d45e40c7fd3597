#include <cstddef>
#include <cstdint>

#include "script_targets.h"

namespace quorvane {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzParse({reinterpret_cast<const char*>(data), size});
  return 0;
}

}  // namespace quorvane
