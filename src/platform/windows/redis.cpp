#include "platform/redis.h"

#include "platform/clock.h"

namespace quorvane {

namespace {

class NoRedis final : public Redis {
 public:
  std::optional<RedisReply> command(const std::vector<std::string>&) override {
    return std::nullopt;
  }
  const std::string& fault() const override { return fault_; }

 private:
  std::string fault_ = "this system's server has no connection to Redis";
};

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): others keep it
std::unique_ptr<Redis> makeRedis(StoreAddress, const Clock&) {
  return std::make_unique<NoRedis>();
}

}  // namespace quorvane
