#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/store_address.h"

namespace quorvane {

class Clock;

/// What a Redis server answers.
struct RedisReply {
  enum class Kind : std::uint8_t { Nothing, Number, Text, List, Error };

  Kind kind = Kind::Nothing;
  std::int64_t number = 0;
  std::string text;  ///< of an error: why
  std::vector<RedisReply> list;

  bool isText() const { return kind == Kind::Text; }
  bool isError() const { return kind == Kind::Error; }
};

/// A connection to a Redis server, made when it is first needed and again whenever it has been
/// lost. A call takes a bounded time, and none at all while the server is known to be away: it is
/// then looked for again after a pause that grows.
class Redis {
 public:
  /// Longer answers are not read.
  static constexpr std::size_t kLongestReply = std::size_t{64} << 20;

  virtual ~Redis() = default;

  /// The answer to a command of one or more words; nothing when the server can't be reached or
  /// says nothing in time. fault() tells why. A command whose answer is missing may have been
  /// carried out, and is given a second time when the connection turns out to have been lost
  /// before.
  virtual std::optional<RedisReply> command(const std::vector<std::string>& words) = 0;

  virtual const std::string& fault() const = 0;
};

/// `clock` outlives the connection.
std::unique_ptr<Redis> makeRedis(StoreAddress address, const Clock& clock);

}  // namespace quorvane
