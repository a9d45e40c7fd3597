#include "platform/hashing.h"

#include <openssl/evp.h>
#include <openssl/hmac.h>

namespace quorvane {

namespace {

const EVP_MD* methodOf(HashKind kind) {
  switch (kind) {
    case HashKind::Md5:
      return EVP_md5();
    case HashKind::Sha1:
      return EVP_sha1();
    case HashKind::Sha256:
      return EVP_sha256();
    case HashKind::Sha384:
      return EVP_sha384();
    case HashKind::Sha512:
      return EVP_sha512();
  }
  return nullptr;
}

const unsigned char* dataOf(std::string_view bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

}  // namespace

std::optional<std::string> hashOf(HashKind kind, std::string_view bytes) {
  std::string hash(hashLength(kind), '\0');
  auto* out = reinterpret_cast<unsigned char*>(hash.data());
  const bool done =
      EVP_Digest(dataOf(bytes), bytes.size(), out, nullptr, methodOf(kind), nullptr) == 1;
  return done ? std::optional(std::move(hash)) : std::nullopt;
}

std::optional<std::string> keyedHashOf(HashKind kind, std::string_view key,
                                       std::string_view bytes) {
  std::string hash(hashLength(kind), '\0');
  auto* out = reinterpret_cast<unsigned char*>(hash.data());
  const bool done = HMAC(methodOf(kind), key.data(), static_cast<int>(key.size()), dataOf(bytes),
                         bytes.size(), out, nullptr) != nullptr;
  return done ? std::optional(std::move(hash)) : std::nullopt;
}

}  // namespace quorvane
