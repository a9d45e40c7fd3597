#include "platform/hashing.h"

#include <windows.h>
// After it.
#include <bcrypt.h>

namespace quorvane {

namespace {

const wchar_t* nameOf(HashKind kind) {
  constexpr const wchar_t* kNames[] = {BCRYPT_MD5_ALGORITHM, BCRYPT_SHA1_ALGORITHM,
                                       BCRYPT_SHA256_ALGORITHM, BCRYPT_SHA384_ALGORITHM,
                                       BCRYPT_SHA512_ALGORITHM};
  return kNames[static_cast<std::size_t>(kind)];
}

unsigned char* dataOf(std::string_view bytes) {
  return reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data()));
}

ULONG lengthOf(std::string_view bytes) {
  return static_cast<ULONG>(bytes.size());
}

std::optional<std::string> computed(HashKind kind, ULONG flags, std::string_view key,
                                    std::string_view bytes) {
  BCRYPT_ALG_HANDLE method = nullptr;
  if (::BCryptOpenAlgorithmProvider(&method, nameOf(kind), nullptr, flags) < 0) return std::nullopt;
  BCRYPT_HASH_HANDLE work = nullptr;
  std::string hash(hashLength(kind), '\0');
  const bool done =
      ::BCryptCreateHash(method, &work, nullptr, 0, dataOf(key), lengthOf(key), 0) >= 0 &&
      ::BCryptHashData(work, dataOf(bytes), lengthOf(bytes), 0) >= 0 &&
      ::BCryptFinishHash(work, dataOf(hash), lengthOf(hash), 0) >= 0;
  if (work) ::BCryptDestroyHash(work);
  ::BCryptCloseAlgorithmProvider(method, 0);
  return done ? std::optional(std::move(hash)) : std::nullopt;
}

}  // namespace

std::optional<std::string> hashOf(HashKind kind, std::string_view bytes) {
  return computed(kind, 0, {}, bytes);
}

std::optional<std::string> keyedHashOf(HashKind kind, std::string_view key,
                                       std::string_view bytes) {
  return computed(kind, BCRYPT_ALG_HANDLE_HMAC_FLAG, key, bytes);
}

}  // namespace quorvane
