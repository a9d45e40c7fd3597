#include "script/run/keeping.h"

#include "platform/redis.h"
#include "script/customary/memory_session_table.h"
#include "script/sessions/memory_auth_keys.h"
#include "script/sessions/memory_session_store.h"
#include "script/shared/shared_keeping.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

class MemoryKeeping final : public Keeping {
 public:
  explicit MemoryKeeping(const Services& services) : services_(services) {}

  std::unique_ptr<SessionStore> sessions() override {
    return std::make_unique<MemorySessionStore>(services_.clock, services_.random, services_.log);
  }
  std::unique_ptr<AuthKeys> authKeys() override {
    return std::make_unique<MemoryAuthKeys>(services_.clock, services_.random);
  }
  std::unique_ptr<customary::SessionTable> visitors() override {
    return std::make_unique<customary::MemorySessionTable>(services_.clock, services_.random,
                                                           services_.log);
  }
  std::shared_ptr<SharedValues::Backing> application() override { return nullptr; }
  bool startsApplication(const std::string&, bool isNew) override { return isNew; }
  bool endsWithServer() const override { return true; }

 private:
  const Services& services_;
};

}  // namespace

std::unique_ptr<Keeping> makeMemoryKeeping(const Services& services) {
  return std::make_unique<MemoryKeeping>(services);
}

std::unique_ptr<Keeping> makeKeeping(const Services& services) {
  const auto& address = services.state.SessionStore;
  if (!address) return makeMemoryKeeping(services);
  return makeSharedKeeping(services, makeRedis(*address, services.clock));
}

}  // namespace quorvane
