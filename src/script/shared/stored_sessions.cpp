#include "script/shared/stored_sessions.h"

#include <utility>

#include "support/text.h"
#include "vbscript/values/error.h"

namespace quorvane {

namespace {

using Words = SharedStore::Words;

/// Beyond this a hash is none of ours.
constexpr std::size_t kMostRead = 4 * KeptFields::kMostBytes;

/// Taken away by one call at most.
constexpr int kMostEnded = 16;

// What the scripts have in common. KEYS: sessions by their ends, and by how long they have been
// idle. ARGV[1]: what the key of a session begins with. A session that never came back or has
// nothing but its head ranks before all others.
constexpr std::string_view kCommon = R"(
local clock = redis.call('time')
local now = clock[1] * 1000 + math.floor(clock[2] / 1000)
local grace = 600000
local function text(number) return string.format('%.0f', number) end
local function begin(id, minutes)
  local key = ARGV[1] .. id
  local time = minutes * 60000
  redis.call('hset', key, '.ends', text(now + time))
  redis.call('pexpire', key, text(math.max(time, 0) + grace))
  redis.call('zadd', KEYS[1], text(now + time), id)
end
local function rank(id)
  local key = ARGV[1] .. id
  local valued = redis.call('hexists', key, '.back') == 1 and redis.call('hlen', key) > 6
  redis.call('zadd', KEYS[2], text(valued and now or now - 1e14), id)
end
local function take(id, whole)
  local key = ARGV[1] .. id
  local fields = {}
  if whole then
    local size = 0
    fields = redis.call('hgetall', key)
    for _, part in ipairs(fields) do size = size + #part end
    if size > 4194304 then fields = {} end
  end
  redis.call('del', key)
  redis.call('zrem', KEYS[1], id)
  redis.call('zrem', KEYS[2], id)
  return {id, fields}
end
)";

constexpr std::string_view kFind = R"(
local id = ARGV[2]
local key = ARGV[1] .. id
local head = redis.call('hmget', key, '.timeout', '.number', '.locale', '.codepage', '.ends')
local minutes = tonumber(head[1])
if not minutes or (tonumber(head[5]) or 0) < now then return false end
redis.call('hset', key, '.back', '1')
begin(id, minutes)
rank(id)
return head
)";

// ARGV: how many live at most, timeout, locale, code page, the first number, the highest name or
// -1, names.
constexpr std::string_view kCreate = R"(
local ended = {}
while redis.call('zcard', KEYS[2]) >= tonumber(ARGV[2]) do
  ended[#ended + 1] = take(redis.call('zrange', KEYS[2], 0, 0)[1], true)
end
local function free(id) return redis.call('exists', ARGV[1] .. id) == 0 end
local id = nil
for i = 8, #ARGV do
  if free(ARGV[i]) then id = ARGV[i] break end
end
local highest = tonumber(ARGV[7])
local last = tonumber(ARGV[#ARGV])
for step = 1, highest + 1 do
  if id then break end
  local next = text((last + step) % (highest + 1))
  if free(next) then id = next end
end
if not id then return redis.error_reply('no name is free') end
local number = highest >= 0 and id or nil
if not number then
  redis.call('set', KEYS[3], ARGV[6], 'NX')
  number = text(100000000 + redis.call('incr', KEYS[3]) % 900000000)
end
redis.call('hset', ARGV[1] .. id, '.timeout', ARGV[3], '.number', number, '.locale', ARGV[4],
  '.codepage', ARGV[5])
begin(id, tonumber(ARGV[3]))
rank(id)
return {id, number, ended}
)";

// ARGV: name, renewed, timeout, locale, code page, how many names and bytes follow, these, then the
// names of removed fields.
constexpr std::string_view kSave = R"(
local id = ARGV[2]
local key = ARGV[1] .. id
if redis.call('exists', key) == 0 then return 0 end
redis.call('hset', key, '.timeout', ARGV[4], '.locale', ARGV[5], '.codepage', ARGV[6])
local set = tonumber(ARGV[7])
for i = 8, 7 + set, 2 do redis.call('hset', key, ARGV[i], ARGV[i + 1]) end
for i = 8 + set, #ARGV do redis.call('hdel', key, ARGV[i]) end
if ARGV[3] == '1' then begin(id, tonumber(ARGV[4])) end
rank(id)
return 1
)";

constexpr std::string_view kRemove = R"(
local found = redis.call('exists', ARGV[1] .. ARGV[2])
take(ARGV[2], false)
return found
)";

constexpr std::string_view kTakeEnded = R"(
local ended = {}
local over = redis.call('zrangebyscore', KEYS[1], '-inf', '(' .. text(now), 'limit', 0, ARGV[2])
for _, id in ipairs(over) do ended[#ended + 1] = take(id, ARGV[3] == '1') end
return ended
)";

// The field's bytes are as long as they are: a hash that is none of ours is not read.
constexpr std::string_view kLoad = R"(
local fields = redis.call('hgetall', KEYS[1])
local size = 0
for _, part in ipairs(fields) do size = size + #part end
if size > tonumber(ARGV[1]) then return redis.error_reply('the session is too large') end
return fields
)";

std::string whole(std::string_view script) {
  return std::string(kCommon).append(script);
}

std::int32_t numberIn(std::string_view text) {
  return wholeNumber<std::int32_t>(text).value_or(0);
}

std::int32_t numberIn(const std::vector<RedisReply>& list, std::size_t place) {
  return place < list.size() ? numberIn(list[place].text) : 0;
}

StoredSessions::Head headOf(const KeptFields::Fields& fields) {
  const auto number = [&fields](const char* name) {
    const auto at = fields.find(name);
    return at == fields.end() ? 0 : numberIn(at->second);
  };
  return {number(".timeout"), number(".number"), number(".locale"), number(".codepage")};
}

/// Without the head, which begins with a dot.
KeptFields valuesOf(KeptFields::Fields fields) {
  std::erase_if(fields, [](const auto& field) { return field.first.starts_with('.'); });
  return KeptFields(std::move(fields));
}

std::vector<StoredSessions::Ended> endedOf(const RedisReply& reply) {
  std::vector<StoredSessions::Ended> ended;
  for (const RedisReply& one : reply.list) {
    if (one.list.size() != 2) continue;
    KeptFields::Fields fields = hashOf(one.list[1]);
    ended.push_back({one.list[0].text, headOf(fields), valuesOf(std::move(fields))});
  }
  return ended;
}

}  // namespace

StoredSessions::StoredSessions(SharedStore& store, std::string_view kind, std::size_t most)
    : store_(store), most_(most) {
  const std::string name = "quorvane:" + std::string(kind);
  prefix_ = name + ':';
  lists_ = {name + "s:ends", name + "s:idle", name + "s:number"};
}

std::optional<StoredSessions::Head> StoredSessions::find(const std::string& id) {
  const RedisReply reply = store_.run(whole(kFind), lists_, {prefix_, id});
  if (reply.kind != RedisReply::Kind::List) return std::nullopt;
  return Head{numberIn(reply.list, 0), numberIn(reply.list, 1), numberIn(reply.list, 2),
              numberIn(reply.list, 3)};
}

StoredSessions::Created StoredSessions::create(const Words& ids, const Head& head,
                                               std::int32_t firstNumber,
                                               std::optional<std::int32_t> highest) {
  Words words{prefix_,
              std::to_string(most_),
              std::to_string(head.timeout),
              std::to_string(head.locale),
              std::to_string(head.codePage),
              std::to_string(firstNumber),
              std::to_string(highest.value_or(-1))};
  words.insert(words.end(), ids.begin(), ids.end());
  const RedisReply reply = store_.run(whole(kCreate), lists_, words);
  if (reply.list.size() != 3) vbs::throwError(vbs::ErrorCode::DeviceUnavailable);
  return {reply.list[0].text, numberIn(reply.list, 1), endedOf(reply.list[2])};
}

KeptFields StoredSessions::load(const std::string& id) {
  return valuesOf(hashOf(store_.run(kLoad, {prefix_ + id}, {std::to_string(kMostRead)})));
}

bool StoredSessions::save(const std::string& id, const Head& head,
                          const KeptFields::Changes& changes, bool renewed) {
  Words words{prefix_,
              id,
              renewed ? "1" : "0",
              std::to_string(head.timeout),
              std::to_string(head.locale),
              std::to_string(head.codePage),
              std::to_string(changes.set.size())};
  words.insert(words.end(), changes.set.begin(), changes.set.end());
  words.insert(words.end(), changes.removed.begin(), changes.removed.end());
  return store_.run(whole(kSave), lists_, words).number == 1;
}

bool StoredSessions::remove(const std::string& id) {
  return store_.run(whole(kRemove), lists_, {prefix_, id}).number == 1;
}

std::vector<StoredSessions::Ended> StoredSessions::takeEnded(bool withFields) {
  return endedOf(store_.run(whole(kTakeEnded), lists_,
                            {prefix_, std::to_string(kMostEnded), withFields ? "1" : "0"}));
}

}  // namespace quorvane
