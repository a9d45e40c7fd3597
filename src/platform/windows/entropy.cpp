#include "platform/entropy.h"

#include <windows.h>
// After it.
#include <bcrypt.h>

#include <cstdlib>

namespace quorvane {

void fillWithEntropy(void* out, std::size_t length) {
  const auto status =
      ::BCryptGenRandom(nullptr, static_cast<unsigned char*>(out),
                        static_cast<unsigned long>(length), BCRYPT_USE_SYSTEM_PREFERRED_RNG);
  if (status < 0) std::abort();  // nothing else would be beyond guessing
}

}  // namespace quorvane
