#include <cstddef>
#include <cstdint>

#include "server_targets.h"

namespace quorvane {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzPage({reinterpret_cast<const char*>(data), size});
  return 0;
}

}  // namespace quorvane
