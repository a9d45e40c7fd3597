#include "components/system/hashes.h"

#include <optional>
#include <string>

#include "components/arguments.h"
#include "platform/entropy.h"
#include "platform/hashing.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Value;

namespace {

struct Algorithm {
  std::string_view typeName;
  HashKind kind;
  std::size_t newKeyBytes = 0;  ///< of the key that a new object brings; 0: it works without
};

class Hash final : public vbs::NativeObject<Hash> {
 public:
  explicit Hash(const Algorithm& algorithm) : algorithm_(algorithm) {
    key_.resize(algorithm.newKeyBytes);
    fillWithEntropy(key_.data(), key_.size());
  }
  std::string_view typeName() const override { return algorithm_.typeName; }

  static std::span<const vbs::Member<Hash>> members() {
    using Self = Hash;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"computehash_2", 1, 1, &Self::compute},
        {"computehash_3", 3, 3, &Self::computePart},
        {"hash", 0, 0, &Self::last},
        {"hashsize", 0, 0, &Self::size},
        {"key", 0, 0, &Self::getKey, &Self::putKey},
        {"initialize", 0, 0, &Self::forget},
        {"clear", 0, 0, &Self::forget},
    };
    return kMembers;
  }

 private:
  static Value bytes(std::string_view content) {
    return Value::array(vbs::ArrayRep::fromBytes(content));
  }
  bool hasKey() const { return algorithm_.newKeyBytes > 0; }

  Value computed(std::string_view content) {
    vbs::countWork(content.size());
    hash_ =
        hasKey() ? keyedHashOf(algorithm_.kind, key_, content) : hashOf(algorithm_.kind, content);
    // An algorithm may be one that the system has turned off.
    if (!hash_) vbs::throwError(ErrorCode::CannotPerform);
    return bytes(*hash_);
  }

  Value compute(Args args) { return computed(arguments::bytes(args[0])); }
  Value computePart(Args args) {
    const std::string_view content = arguments::bytes(args[0]);
    const std::int32_t start = vbs::toLong(args[1]);
    const std::int32_t count = vbs::toLong(args[2]);
    if (start < 0 || count < 0 || static_cast<std::size_t>(start) > content.size() ||
        static_cast<std::size_t>(count) > content.size() - static_cast<std::size_t>(start)) {
      vbs::throwError(ErrorCode::InvalidCall);
    }
    return computed(
        content.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count)));
  }
  Value last(Args) {
    if (!hash_) vbs::throwError(ErrorCode::InvalidCall);
    return bytes(*hash_);
  }
  Value size(Args) {
    return Value::longInt(static_cast<std::int32_t>(hashLength(algorithm_.kind) * 8));
  }
  Value getKey(Args) {
    if (!hasKey()) vbs::throwError(ErrorCode::NoPropertyOrMethod);
    return bytes(key_);
  }
  void putKey(Args args, vbs::CallKind) {
    if (!hasKey()) vbs::throwError(ErrorCode::NoPropertyOrMethod);
    key_ = arguments::bytes(args[0]);
  }
  Value forget(Args) {
    hash_.reset();
    return {};
  }

  const Algorithm& algorithm_;
  std::string key_;
  std::optional<std::string> hash_;  ///< of the last computation
};

constexpr Algorithm kMd5Algorithm{"MD5CryptoServiceProvider", HashKind::Md5};
constexpr Algorithm kSha1Algorithm{"SHA1CryptoServiceProvider", HashKind::Sha1};
constexpr Algorithm kSha256Algorithm{"SHA256Managed", HashKind::Sha256};
constexpr Algorithm kSha384Algorithm{"SHA384Managed", HashKind::Sha384};
constexpr Algorithm kSha512Algorithm{"SHA512Managed", HashKind::Sha512};
constexpr Algorithm kHmacMd5Algorithm{"HMACMD5", HashKind::Md5, 64};
constexpr Algorithm kHmacSha1Algorithm{"HMACSHA1", HashKind::Sha1, 64};
constexpr Algorithm kHmacSha256Algorithm{"HMACSHA256", HashKind::Sha256, 64};
constexpr Algorithm kHmacSha384Algorithm{"HMACSHA384", HashKind::Sha384, 128};
constexpr Algorithm kHmacSha512Algorithm{"HMACSHA512", HashKind::Sha512, 128};

template <const Algorithm& algorithm>
Value create(const Services&) {
  return Value::adopt(new Hash(algorithm));
}

}  // namespace

const Component kMd5{"system.security.cryptography.md5cryptoserviceprovider",
                     create<kMd5Algorithm>};
const Component kSha1{
    "system.security.cryptography.sha1cryptoserviceprovider "
    "system.security.cryptography.sha1managed",
    create<kSha1Algorithm>};
const Component kSha256{
    "system.security.cryptography.sha256managed "
    "system.security.cryptography.sha256cryptoserviceprovider",
    create<kSha256Algorithm>};
const Component kSha384{
    "system.security.cryptography.sha384managed "
    "system.security.cryptography.sha384cryptoserviceprovider",
    create<kSha384Algorithm>};
const Component kSha512{
    "system.security.cryptography.sha512managed "
    "system.security.cryptography.sha512cryptoserviceprovider",
    create<kSha512Algorithm>};
const Component kHmacMd5{"system.security.cryptography.hmacmd5", create<kHmacMd5Algorithm>};
const Component kHmacSha1{"system.security.cryptography.hmacsha1", create<kHmacSha1Algorithm>};
const Component kHmacSha256{"system.security.cryptography.hmacsha256",
                            create<kHmacSha256Algorithm>};
const Component kHmacSha384{"system.security.cryptography.hmacsha384",
                            create<kHmacSha384Algorithm>};
const Component kHmacSha512{"system.security.cryptography.hmacsha512",
                            create<kHmacSha512Algorithm>};

}  // namespace quorvane
