#include <cstddef>
#include <cstdint>

#include "jet_targets.h"
#include "proxy_targets.h"
#include "reader_targets.h"
#include "script_targets.h"
#include "server_targets.h"
#include "sql_targets.h"
#include "wish_targets.h"
#include "xml_targets.h"

namespace quorvane {

/// One program a target, which the build names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
  return 0;
}

}  // namespace quorvane
