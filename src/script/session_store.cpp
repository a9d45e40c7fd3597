#include "script/session_store.h"

#include <string>

#include "support/text.h"

namespace {

/// Draws that meet a taken number before the next free one upwards is taken instead. Only a store
/// that is nearly full gets there.
constexpr int kMostDraws = 1000;

std::string keyOf(std::int32_t number) {
  return "sid" + std::to_string(number);
}

}  // namespace

SessionStore::SessionStore(const Clock& clock, Random& random, StatusLines& log)
    : clock_(clock), random_(random), log_(log) {}

vbs::Ref<aspSessionObj> SessionStore::getOrCreate(std::int32_t number) {
  if (number > 0) {
    if (const auto* held = sessions_.find(keyOf(number))) {
      vbs::Ref<aspSessionObj> session = *held;
      if (!session->OutOfDate()) {
        session->Refresh();
        return session;
      }
      remove(number);
    }
  }
  return create();
}

vbs::Ref<aspSessionObj> SessionStore::create() {
  if (sessions_.size() > static_cast<std::size_t>(kHighestNumber)) dropOldest();
  auto session = vbs::make<aspSessionObj>(clock_);
  const std::int32_t number = freeNumber();
  session->setSessionID(number);
  sessions_.add(keyOf(number), session);
  log_.LogLine("Session " + std::to_string(number) + " created");
  return session;
}

std::int32_t SessionStore::freeNumber() {
  std::int32_t number = 0;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    number = static_cast<std::int32_t>(roundHalfEven(random_.fraction() * kHighestNumber));
    if (!sessions_.find(keyOf(number))) return number;
  }
  while (sessions_.find(keyOf(number))) number = number < kHighestNumber ? number + 1 : 0;
  return number;
}

void SessionStore::remove(std::int32_t number) {
  sessions_.remove(keyOf(number));
}

void SessionStore::dropOldest() {
  const std::string key = sessions_.begin()->key;
  log_.LogLine("Session " + key.substr(3) + " destroyed");
  sessions_.remove(key);
}

void SessionStore::expire() {
  sessions_.removeIf([this](const auto& entry) {
    if (!entry.value->OutOfDate()) return false;
    log_.LogLine("Session " + std::to_string(entry.value->SessionID()) + " destroyed");
    return true;
  });
}

void SessionStore::forEach(const std::function<void(const aspSessionObj&)>& visit) const {
  for (const auto& entry : sessions_) visit(*entry.value);
}
