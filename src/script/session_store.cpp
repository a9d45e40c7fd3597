#include "script/session_store.h"

#include <string>

#include "support/text.h"

namespace {

/// Draws that meet a taken number before the next free one upwards is taken instead. Only a store
/// that is nearly full gets there.
constexpr int kMostDraws = 4;

}  // namespace

SessionStore::SessionStore(const Clock& clock, Random& random, StatusLines& log)
    : clock_(clock), random_(random), log_(log) {}

vbs::Ref<aspSessionObj> SessionStore::find(std::int32_t number) const {
  if (number < 0 || number > kHighestNumber) return {};
  return places_[static_cast<std::size_t>(number)].session;
}

vbs::Ref<aspSessionObj> SessionStore::getOrCreate(std::int32_t number) {
  if (number > 0) {
    vbs::Ref<aspSessionObj> session = find(number);
    if (session && !session->OutOfDate()) {
      session->Refresh();
      return session;
    }
    remove(number);
  }
  return create();
}

vbs::Ref<aspSessionObj> SessionStore::create() {
  const bool isFull = ages_.size() == places_.size();
  const std::int32_t number = isFull ? dropOldest() : freeNumber();
  auto session = vbs::make<aspSessionObj>(clock_);
  session->setSessionID(number);
  places_[static_cast<std::size_t>(number)] = {session, ages_.insert(ages_.end(), number)};
  log_.LogLine("Session " + std::to_string(number) + " created");
  return session;
}

std::int32_t SessionStore::freeNumber() {
  std::int32_t number = 0;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    number = static_cast<std::int32_t>(roundHalfEven(random_.fraction() * kHighestNumber));
    if (!find(number)) return number;
  }
  while (places_[static_cast<std::size_t>(number)].session) {
    number = number < kHighestNumber ? number + 1 : 0;
  }
  return number;
}

void SessionStore::remove(std::int32_t number) {
  if (!find(number)) return;
  Place& place = places_[static_cast<std::size_t>(number)];
  ages_.erase(place.age);
  place = {};
}

std::int32_t SessionStore::dropOldest() {
  const std::int32_t number = ages_.front();
  log_.LogLine("Session " + std::to_string(number) + " destroyed");
  remove(number);
  return number;
}

void SessionStore::expire() {
  for (auto age = ages_.begin(); age != ages_.end();) {
    const std::int32_t number = *age++;
    if (!find(number)->OutOfDate()) continue;
    log_.LogLine("Session " + std::to_string(number) + " destroyed");
    remove(number);
  }
}

void SessionStore::forEach(const std::function<void(const aspSessionObj&)>& visit) const {
  for (const std::int32_t number : ages_) visit(*find(number));
}
