#include "script/shared/stored_application.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include "script/script_values.h"
#include "script/shared/kept_fields.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;

/// For somebody else's lock, which lasts for kLease (in the scripts) after its last use.
constexpr milliseconds kLongestWait{8000};
constexpr milliseconds kLongestPause{8};

const SharedStore::Words& keys() {
  static const SharedStore::Words kKeys{"quorvane:application", "quorvane:application:version",
                                        "quorvane:application:lock"};
  return kKeys;
}

// What the scripts have in common. ARGV[1]: the version that is known; ARGV[2]: the token of the
// lock, or nothing. They give back a number when they have to wait.
constexpr std::string_view kCommon = R"(
local lease = 3000
local version = redis.call('get', KEYS[2]) or ''
local holder = redis.call('get', KEYS[3])
local function read()
  if version == ARGV[1] then return {version} end
  return {version, redis.call('hgetall', KEYS[1])}
end
)";

constexpr std::string_view kRead = "return read()";

constexpr std::string_view kLock = R"(
if holder then return 0 end
redis.call('set', KEYS[3], ARGV[2], 'PX', lease)
return read()
)";

constexpr std::string_view kUnlock = R"(
if holder == ARGV[2] then redis.call('del', KEYS[3]) end
return {version}
)";

// A lock that has ended is taken again where nobody has written since.
constexpr std::string_view kBeforeWrite = R"(
if ARGV[2] == '' then
  if holder then return 0 end
elseif holder == ARGV[2] or (not holder and version == ARGV[1]) then
  redis.call('set', KEYS[3], ARGV[2], 'PX', lease)
else
  return redis.error_reply('the lock of Application has ended, and others have gone on')
end
if version == '' then
  redis.call('set', KEYS[2], string.format('%.0f', redis.call('time')[1] * 1000))
end
)";
constexpr std::string_view kAfterWrite =
    "\nreturn {string.format('%.0f', redis.call('incr', KEYS[2]))}";

std::string script(std::string_view text) {
  return std::string(kCommon).append(text);
}

}  // namespace

void StoredApplication::prepare(SharedValues& values) {
  if (isCurrent_) return;
  take(values, store_.run(script(kRead), keys(), {version_, ""}));
}

void StoredApplication::take(SharedValues& values, const RedisReply& reply) {
  isCurrent_ = true;
  if (reply.list.size() < 2) return;
  const KeptFields fields(hashOf(reply.list[1]));
  values.dropAll();
  places_.clear();
  for (const KeptFields::Entry& entry : fields.entries({})) {
    values.store(entry.key, entry.value);
    places_[SharedValues::foldedKey(entry.key)] = entry.place;
  }
  version_ = reply.list[0].text;
}

/// Asks until nobody else holds the lock.
RedisReply StoredApplication::whenFree(std::string_view text, const SharedStore::Words& arguments) {
  const auto began = clock_.steadyNow();
  milliseconds pause{1};
  while (true) {
    RedisReply reply = store_.run(text, keys(), arguments);
    if (reply.kind != RedisReply::Kind::Number) return reply;
    if (clock_.steadyNow() - began > kLongestWait) {
      script_values::fail(vbs::ErrorCode::PermissionDenied,
                          "Application is locked by another page");
    }
    std::this_thread::sleep_for(pause);
    pause = std::min(pause * 2, kLongestPause);
  }
}

void StoredApplication::lock(SharedValues& values) {
  if (!token_.empty()) return;
  std::string token = hexDigits(random_.guid());
  take(values, whenFree(script(kLock), {version_, token}));
  token_ = std::move(token);
}

void StoredApplication::unlock() {
  if (token_.empty()) return;
  const std::string token = std::exchange(token_, {});
  store_.run(script(kUnlock), keys(), {version_, token});
}

void StoredApplication::endPage() {
  isCurrent_ = false;
  try {
    unlock();
  } catch (const vbs::ScriptError&) {  // it ends by itself
  }
}

void StoredApplication::write(std::string_view operation, SharedStore::Words arguments) {
  arguments.insert(arguments.begin(), {version_, token_});
  const std::string text = script(kBeforeWrite).append(operation).append(kAfterWrite);
  const RedisReply reply = whenFree(text, arguments);
  if (reply.list.size() != 1) return;
  // Where others have written in between, the next page reads all.
  const std::string& now = reply.list[0].text;
  const bool isNext = numericValue(now) == numericValue(version_).value_or(0) + 1;
  version_ = isNext ? now : "none";
}

void StoredApplication::put(const vbs::Value& key, const vbs::Value& value) {
  const std::string field = SharedValues::foldedKey(key);
  const auto known = places_.find(field);
  std::uint64_t place = 1;
  if (known != places_.end()) {
    place = known->second;
  } else {
    for (const auto& [name, other] : places_) place = std::max(place, other + 1);
  }
  std::string bytes = KeptFields::bytesOf(place, vbs::toString(key), value);
  if (bytes.size() > KeptFields::kMostBytes) {
    script_values::fail(vbs::ErrorCode::OutOfMemory,
                        "A value of Application in the shared store has 1 MiB at most");
  }
  write("redis.call('hset', KEYS[1], ARGV[3], ARGV[4])", {field, std::move(bytes)});
  places_[field] = place;
}

void StoredApplication::remove(const vbs::Value& key) {
  const std::string field = SharedValues::foldedKey(key);
  write("redis.call('hdel', KEYS[1], ARGV[3])", {field});
  places_.erase(field);
}

void StoredApplication::clear() {
  write("redis.call('del', KEYS[1])", {});
  places_.clear();
}

}  // namespace quorvane
