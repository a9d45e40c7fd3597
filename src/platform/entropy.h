#pragma once

#include <cstddef>

namespace quorvane {

/// Fills `length` bytes with what nobody can guess, from the system's own source. Each system's
/// folder implements it.
void fillWithEntropy(void* out, std::size_t length);

}  // namespace quorvane
