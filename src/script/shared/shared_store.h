#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/redis.h"
#include "support/status_lines.h"

namespace quorvane {

/// The store that several instances of the server share: a Redis server. Every command is a script
/// of the store's, so that it is carried out in one step whatever other instances do.
class SharedStore {
 public:
  /// `log` outlives the store.
  SharedStore(std::unique_ptr<Redis> redis, StatusLines& log)
      : redis_(std::move(redis)), log_(log) {}

  using Words = std::vector<std::string>;

  /// What the script gives back. Throws vbs::ScriptError, with a reason that a page can show, when
  /// the store can't be reached or does not carry it out.
  RedisReply run(std::string_view script, const Words& keys, const Words& arguments);

 private:
  void noteState(bool isThere);

  std::unique_ptr<Redis> redis_;
  StatusLines& log_;
  bool wasThere_ = true;
};

/// The fields of a hash, which a reply lists with their bytes by turns.
std::map<std::string, std::string> hashOf(const RedisReply& reply);

}  // namespace quorvane
