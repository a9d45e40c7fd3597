#include "platform/redis.h"

#include <hiredis/hiredis.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/clock.h"
#include "platform/host_lookup.h"
#include "support/ip_address.h"

namespace quorvane {

namespace {

using std::chrono::milliseconds;
using SteadyTime = std::chrono::steady_clock::time_point;

constexpr milliseconds kLookupTime{300};
constexpr milliseconds kConnectTime{300};
constexpr milliseconds kReadTime{700};    ///< without a byte
constexpr milliseconds kAnswerTime{800};  ///< for an answer in all
constexpr milliseconds kFirstPause{250};
constexpr milliseconds kLongestPause{4000};

timeval timeOf(milliseconds time) {
  timeval value{};
  value.tv_sec = static_cast<decltype(value.tv_sec)>(time.count() / 1000);
  value.tv_usec = static_cast<decltype(value.tv_usec)>(time.count() % 1000 * 1000);
  return value;
}

struct FreeContext {
  void operator()(redisContext* context) const { redisFree(context); }
};
struct FreeReply {
  void operator()(redisReply* reply) const { freeReplyObject(reply); }
};
using Context = std::unique_ptr<redisContext, FreeContext>;

RedisReply replyOf(const redisReply& raw) {
  RedisReply reply;
  switch (raw.type) {
    case REDIS_REPLY_INTEGER:
      reply.kind = RedisReply::Kind::Number;
      reply.number = raw.integer;
      break;
    case REDIS_REPLY_STRING:
    case REDIS_REPLY_STATUS:
    case REDIS_REPLY_ERROR:
      reply.kind = raw.type == REDIS_REPLY_ERROR ? RedisReply::Kind::Error : RedisReply::Kind::Text;
      reply.text.assign(raw.str, static_cast<std::size_t>(raw.len));
      break;
    case REDIS_REPLY_ARRAY:
      reply.kind = RedisReply::Kind::List;
      reply.list.reserve(raw.elements);
      for (std::size_t i = 0; i < raw.elements; ++i) reply.list.push_back(replyOf(*raw.element[i]));
      break;
    default:
      break;
  }
  return reply;
}

class RedisConnection final : public Redis {
 public:
  RedisConnection(StoreAddress address, const Clock& clock)
      : address_(std::move(address)), clock_(clock) {}

  std::optional<RedisReply> command(const std::vector<std::string>& words) override {
    const bool wasThere = context_ != nullptr;
    if (!wasThere && !connect()) return std::nullopt;
    auto reply = ask(words);
    // The server may have been started again since the last command.
    if (!reply && wasThere && !context_ && isLost_ && connect()) reply = ask(words);
    if (!reply) noteAway();
    return reply;
  }

  const std::string& fault() const override { return fault_; }

 private:
  void noteAway() {
    context_.reset();
    pause_ = std::clamp(pause_ * 2, kFirstPause, kLongestPause);
    awayUntil_ = clock_.steadyNow() + pause_;
  }

  bool connect() {
    if (clock_.steadyNow() < awayUntil_) return false;
    if (open() && redisSetTimeout(context_.get(), timeOf(kReadTime)) == REDIS_OK && enter()) {
      pause_ = {};
      return true;
    }
    noteAway();
    return false;
  }

  bool open() {
    if (!address_.path.empty()) {
      return take(redisConnectUnixWithTimeout(address_.path.c_str(), timeOf(kConnectTime)));
    }
    const auto addresses = findHost();
    const auto begun = clock_.steadyNow();
    return std::any_of(addresses.begin(), addresses.end(), [&](const std::string& one) {
      const auto spent = std::chrono::ceil<milliseconds>(clock_.steadyNow() - begun);
      const timeval time = timeOf(std::max(kConnectTime - spent, milliseconds{1}));
      return take(redisConnectWithTimeout(one.c_str(), address_.port, time));
    });
  }

  bool take(redisContext* made) {
    context_.reset(made);
    if (!context_) fault_ = "out of memory";
    if (context_ && context_->err != 0) fault_ = context_->errstr;
    return context_ && context_->err == 0;
  }

  /// The addresses to try. One look-up is under way at most, and waited for once.
  std::vector<std::string> findHost() {
    if (IpAddress::parse(address_.host)) return {address_.host};
    const bool isNew = !lookup_;
    if (isNew) lookup_.emplace(address_.host);
    const auto found = lookup_->wait(isNew ? kLookupTime : milliseconds{0});
    fault_ = found ? found->fault : "the host's address is not found in time";
    if (!found) return {};
    lookup_.reset();
    return found->addresses;
  }

  /// What the server wants to know first.
  bool enter() {
    std::vector<std::vector<std::string>> first;
    if (!address_.password.empty()) {
      first.push_back({"AUTH"});
      if (!address_.user.empty()) first.back().push_back(address_.user);
      first.back().push_back(address_.password);
    }
    if (address_.database != 0) first.push_back({"SELECT", std::to_string(address_.database)});
    return std::all_of(first.begin(), first.end(), [this](const auto& words) {
      const auto reply = ask(words);
      if (reply && reply->isError()) fault_ = reply->text;
      return reply && !reply->isError();
    });
  }

  /// Without an answer there is no connection either: what comes later would belong to another
  /// command.
  std::optional<RedisReply> ask(const std::vector<std::string>& words) {
    isLost_ = false;
    std::vector<const char*> texts;
    std::vector<std::size_t> lengths;
    for (const std::string& word : words) {
      texts.push_back(word.data());
      lengths.push_back(word.size());
    }
    if (redisAppendCommandArgv(context_.get(), static_cast<int>(words.size()), texts.data(),
                               lengths.data()) != REDIS_OK) {
      return giveUp("out of memory");
    }
    asked_ = clock_.steadyNow();
    int isSent = 0;
    while (isSent == 0) {
      if (redisBufferWrite(context_.get(), &isSent) != REDIS_OK) return lose();
      if (isSent == 0 && clock_.steadyNow() - asked_ > kAnswerTime)
        return giveUp("no answer in time");
    }
    return readReply();
  }

  std::optional<RedisReply> readReply() {
    void* raw = nullptr;
    std::size_t received = 0;
    while (true) {
      if (redisGetReplyFromReader(context_.get(), &raw) != REDIS_OK) return lose();
      if (raw) break;
      if (clock_.steadyNow() - asked_ > kAnswerTime) return giveUp("no answer in time");
      const std::size_t before = context_->reader->len;
      if (redisBufferRead(context_.get()) != REDIS_OK) return lose();
      received += context_->reader->len - std::min(before, context_->reader->len);
      if (received > kLongestReply) return giveUp("the answer is too long");
    }
    const std::unique_ptr<redisReply, FreeReply> reply(static_cast<redisReply*>(raw));
    return replyOf(*reply);
  }

  std::optional<RedisReply> giveUp(std::string why) {
    fault_ = std::move(why);
    context_.reset();
    return std::nullopt;
  }

  /// The library does not tell a connection that has ended from a server that is silent.
  std::optional<RedisReply> lose() {
    if (clock_.steadyNow() - asked_ >= kReadTime / 2) return giveUp("no answer in time");
    isLost_ = context_->err == REDIS_ERR_EOF || context_->err == REDIS_ERR_IO;
    return giveUp(context_->errstr);
  }

  StoreAddress address_;
  const Clock& clock_;
  std::optional<HostLookup> lookup_;  ///< under way
  Context context_;
  std::string fault_;
  bool isLost_ = false;  ///< the other side had ended the connection
  milliseconds pause_{};
  SteadyTime awayUntil_{};
  SteadyTime asked_{};
};

}  // namespace

std::unique_ptr<Redis> makeRedis(StoreAddress address, const Clock& clock) {
  return std::make_unique<RedisConnection>(std::move(address), clock);
}

}  // namespace quorvane
