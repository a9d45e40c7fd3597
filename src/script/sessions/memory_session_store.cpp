#include "script/sessions/memory_session_store.h"

#include <bit>
#include <string>
#include <utility>

#include "support/text.h"
#include "vbscript/values/circles.h"

namespace quorvane {

namespace {

/// Draws that meet a taken number before the next free one upwards is taken instead. Only a store
/// that is nearly full gets there.
constexpr int kMostDraws = 4;

}  // namespace

MemorySessionStore::MemorySessionStore(const Clock& clock, Random& random, StatusLines& log)
    : clock_(clock), random_(random), log_(log) {}

vbs::Ref<aspSessionObj> MemorySessionStore::find(std::int32_t number) const {
  if (number < 0 || number > kHighestNumber) return {};
  return places_[static_cast<std::size_t>(number)].session;
}

vbs::Ref<aspSessionObj> MemorySessionStore::getOrCreate(std::int32_t number) {
  if (number > 0) {
    vbs::Ref<aspSessionObj> session = find(number);
    if (session && !session->OutOfDate()) {
      session->Refresh();
      Place& place = places_[static_cast<std::size_t>(number)];
      place.cameBack = true;
      rank(place);
      return session;
    }
    remove(number);
  }
  return create();
}

vbs::Ref<aspSessionObj> MemorySessionStore::create() {
  const bool isFull = ages_.size() == places_.size();
  const std::int32_t number = isFull ? dropIdlest() : freeNumber();
  auto session = vbs::make<aspSessionObj>(clock_);
  session->setSessionID(number);
  places_[static_cast<std::size_t>(number)] = {session, ages_.insert(ages_.end(), number),
                                               expendable_.insert(expendable_.end(), number),
                                               &expendable_};
  setTaken(number, true);
  log_.LogLine("Session " + std::to_string(number) + " created");
  return session;
}

std::int32_t MemorySessionStore::freeNumber() {
  std::int32_t number = 0;
  for (int draw = 0; draw < kMostDraws; ++draw) {
    number = static_cast<std::int32_t>(roundHalfEven(random_.fraction() * kHighestNumber));
    if (!find(number)) return number;
  }
  return nextFreeNumber(number);
}

/// The first free number from this one on; behind the highest comes 0. There must be one.
std::int32_t MemorySessionStore::nextFreeNumber(std::int32_t number) const {
  auto word = static_cast<std::size_t>(number) / 64;
  std::uint64_t free = ~taken_[word] & (~std::uint64_t{0} << number % 64);
  while (true) {
    const auto found = static_cast<std::int32_t>(word * 64) + std::countr_zero(free);
    if (free != 0 && found <= kHighestNumber) return found;
    word = (word + 1) % kWords;
    free = ~taken_[word];
  }
}

void MemorySessionStore::setTaken(std::int32_t number, bool taken) {
  const std::uint64_t bit = std::uint64_t{1} << number % 64;
  std::uint64_t& word = taken_[static_cast<std::size_t>(number) / 64];
  word = taken ? word | bit : word & ~bit;
}

/// The session is the one used last, so it goes to the end of its list.
void MemorySessionStore::rank(Place& place) {
  Numbers& wanted = place.cameBack && place.session->holdsAnything() ? valued_ : expendable_;
  wanted.splice(wanted.end(), *place.rank, place.idle);
  place.rank = &wanted;
}

void MemorySessionStore::noteRun(std::int32_t number) {
  if (find(number)) rank(places_[static_cast<std::size_t>(number)]);
}

/// Whoever still holds the session finds it empty: its objects die with it.
void MemorySessionStore::remove(std::int32_t number) {
  if (!find(number)) return;
  Place& place = places_[static_cast<std::size_t>(number)];
  mayHaveCircles_ |= place.session->holdsObjects();
  place.session->Abandon();
  ages_.erase(place.age);
  place.rank->erase(place.idle);
  place = {};
  setTaken(number, false);
}

/// Looking for circles takes a walk over every object, so it is done once for many sessions.
void MemorySessionStore::endLooseCircles() {
  if (std::exchange(mayHaveCircles_, false)) vbs::endCircles(nullptr);
}

MemorySessionStore::~MemorySessionStore() {
  while (!ages_.empty()) MemorySessionStore::remove(ages_.front());
  endLooseCircles();
}

/// With number 0 goes no cookie, so that its session is never of use again: a new visitor who got
/// nothing but this number would stay a stranger for as long as the others stay.
std::int32_t MemorySessionStore::dropIdlest() {
  const bool onlyZero = expendable_.size() == 1 && expendable_.front() == 0;
  const std::int32_t number = (onlyZero ? valued_ : expendable_).front();
  log_.LogLine("Session " + std::to_string(number) + " destroyed");
  remove(number);
  return number;
}

void MemorySessionStore::expire() {
  for (auto age = ages_.begin(); age != ages_.end();) {
    const std::int32_t number = *age++;
    if (!find(number)->OutOfDate()) continue;
    log_.LogLine("Session " + std::to_string(number) + " destroyed");
    remove(number);
  }
  endLooseCircles();
}

void MemorySessionStore::forEach(const std::function<void(const aspSessionObj&)>& visit) const {
  for (const std::int32_t number : ages_) visit(*find(number));
}

}  // namespace quorvane
