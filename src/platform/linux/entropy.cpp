#include "platform/entropy.h"

#include <sys/random.h>

#include <cerrno>
#include <random>

namespace quorvane {

/// Asking again is all that an interruption needs.
void fillWithEntropy(void* out, std::size_t length) {
  auto* bytes = static_cast<char*>(out);
  while (length > 0) {
    const ssize_t count = ::getrandom(bytes, length, 0);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {  // a kernel without the call
      std::random_device spare;
      *bytes++ = static_cast<char>(spare());
      --length;
      continue;
    }
    bytes += count;
    length -= static_cast<std::size_t>(count);
  }
}

}  // namespace quorvane
