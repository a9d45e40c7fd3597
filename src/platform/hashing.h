#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// Hashes by the system's library for such. Each system's folder implements them. Nothing comes of
/// an algorithm that the system has turned off.

enum class HashKind : std::uint8_t { Md5, Sha1, Sha256, Sha384, Sha512 };

constexpr std::size_t hashLength(HashKind kind) {
  constexpr std::size_t kBytes[] = {16, 20, 32, 48, 64};
  return kBytes[static_cast<std::size_t>(kind)];
}

std::optional<std::string> hashOf(HashKind kind, std::string_view bytes);

/// With a key, as RFC 2104 has it.
std::optional<std::string> keyedHashOf(HashKind kind, std::string_view key, std::string_view bytes);

}  // namespace quorvane
