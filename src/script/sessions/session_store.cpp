#include "script/sessions/session_store.h"

#include <bit>
#include <string>

#include "support/text.h"

namespace quorvane {

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
  setTaken(number, true);
  log_.LogLine("Session " + std::to_string(number) + " created");
  return session;
}

std::int32_t SessionStore::freeNumber() {
  std::int32_t number = 0;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    number = static_cast<std::int32_t>(roundHalfEven(random_.fraction() * kHighestNumber));
    if (!find(number)) return number;
  }
  return nextFreeNumber(number);
}

/// The first free number from this one on; behind the highest comes 0. There must be one.
std::int32_t SessionStore::nextFreeNumber(std::int32_t number) const {
  auto word = static_cast<std::size_t>(number) / 64;
  std::uint64_t free = ~taken_[word] & (~std::uint64_t{0} << number % 64);
  while (true) {
    const auto found = static_cast<std::int32_t>(word * 64) + std::countr_zero(free);
    if (free != 0 && found <= kHighestNumber) return found;
    word = (word + 1) % kWords;
    free = ~taken_[word];
  }
}

void SessionStore::setTaken(std::int32_t number, bool taken) {
  const std::uint64_t bit = std::uint64_t{1} << number % 64;
  std::uint64_t& word = taken_[static_cast<std::size_t>(number) / 64];
  word = taken ? word | bit : word & ~bit;
}

void SessionStore::remove(std::int32_t number) {
  if (!find(number)) return;
  Place& place = places_[static_cast<std::size_t>(number)];
  ages_.erase(place.age);
  place = {};
  setTaken(number, false);
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

}  // namespace quorvane
