#include "script/shared/shared_auth_keys.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::chrono::seconds kSweepInterval{30};

std::string nameOf(std::string_view key) {
  return "quorvane:key:" + upperCase(key);
}

}  // namespace

std::string SharedAuthKeys::issue(std::chrono::minutes lifetime) {
  std::string key = upperCase(hexDigits(random_.guid()));
  const std::chrono::seconds time = std::max<std::chrono::seconds>(lifetime, {}) + kSweepInterval;
  store_.run("return redis.call('set', KEYS[1], '1', 'EX', ARGV[1])", {nameOf(key)},
             {std::to_string(time.count())});
  return key;
}

bool SharedAuthKeys::validate(std::string_view key) {
  if (key.size() != kKeyLength) return false;
  return store_.run("return redis.call('exists', KEYS[1])", {nameOf(key)}, {}).number == 1;
}

}  // namespace quorvane
