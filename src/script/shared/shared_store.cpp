#include "script/shared/shared_store.h"

#include "script/script_values.h"

namespace quorvane {

namespace {

[[noreturn]] void fail(const std::string& what, const std::string& why) {
  script_values::fail(vbs::ErrorCode::DeviceUnavailable, "The session store " + what + ": " + why);
}

}  // namespace

std::map<std::string, std::string> hashOf(const RedisReply& reply) {
  std::map<std::string, std::string> fields;
  for (std::size_t i = 0; i + 1 < reply.list.size(); i += 2) {
    fields[reply.list[i].text] = reply.list[i + 1].text;
  }
  return fields;
}

RedisReply SharedStore::run(std::string_view script, const Words& keys, const Words& arguments) {
  Words words{"EVAL", std::string(script), std::to_string(keys.size())};
  words.insert(words.end(), keys.begin(), keys.end());
  words.insert(words.end(), arguments.begin(), arguments.end());
  auto reply = redis_->command(words);
  noteState(reply.has_value());
  if (!reply) fail("can't be reached", redis_->fault());
  if (reply->isError()) fail("refuses", reply->text);
  return std::move(*reply);
}

void SharedStore::noteState(bool isThere) {
  if (isThere == wasThere_) return;
  wasThere_ = isThere;
  log_.LogLine(isThere ? "The session store is there again"
                       : "The session store can't be reached: " + redis_->fault());
}

}  // namespace quorvane
