#include "script/shared/shared_keeping.h"

#include "script/shared/shared_auth_keys.h"
#include "script/shared/shared_session_store.h"
#include "script/shared/shared_session_table.h"
#include "script/shared/stored_application.h"

namespace quorvane {

namespace {

// KEYS[1]: the sum of the text whose application has been started. ARGV: a text, and whether it is
// new to the server that asks. Without an application any server starts it.
constexpr std::string_view kStart = R"(
local known = redis.call('get', KEYS[1])
local sum = redis.sha1hex(ARGV[1])
if known == sum or (known and ARGV[2] == '0') then return 0 end
redis.call('set', KEYS[1], sum)
return 1
)";

class SharedKeeping final : public Keeping {
 public:
  SharedKeeping(const Services& services, std::unique_ptr<Redis> redis)
      : services_(services), store_(std::move(redis), services.log) {}

  std::unique_ptr<SessionStore> sessions() override {
    return std::make_unique<SharedSessionStore>(store_, services_);
  }
  std::unique_ptr<AuthKeys> authKeys() override {
    return std::make_unique<SharedAuthKeys>(store_, services_.random);
  }
  std::unique_ptr<customary::SessionTable> visitors() override {
    return std::make_unique<customary::SharedSessionTable>(store_, services_);
  }
  std::shared_ptr<SharedValues::Backing> application() override {
    return std::make_shared<StoredApplication>(store_, services_.clock, services_.random);
  }
  bool startsApplication(const std::string& text, bool isNew) override {
    return store_.run(kStart, {"quorvane:application:started"}, {text, isNew ? "1" : "0"}).number ==
           1;
  }
  bool endsWithServer() const override { return false; }

 private:
  const Services& services_;
  SharedStore store_;
};

}  // namespace

std::unique_ptr<Keeping> makeSharedKeeping(const Services& services, std::unique_ptr<Redis> redis) {
  return std::make_unique<SharedKeeping>(services, std::move(redis));
}

}  // namespace quorvane
