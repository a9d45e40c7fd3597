#include "script/customary/memory_session_table.h"

#include <utility>

namespace quorvane::customary {

namespace {

// Numbers have nine digits; which come first is left to chance, so that those of another start are
// others.
constexpr std::int32_t kLowestNumber = 100'000'000;
constexpr std::int32_t kHighestNumber = 999'999'999;

}  // namespace

MemorySessionTable::MemorySessionTable(const Clock& clock, Random& random, StatusLines& log,
                                       std::size_t most)
    : clock_(clock),
      random_(random),
      log_(log),
      most_(most),
      lastNumber_(kLowestNumber + static_cast<std::int32_t>(random.fraction() * 800'000'000)) {}

std::shared_ptr<Session> MemorySessionTable::find(std::string_view id) {
  const auto at = places_.find(id);
  if (at == places_.end() || at->second.session->isOutOfDate(clock_.now())) return nullptr;
  Place& place = at->second;
  place.session->lastAccess = clock_.now();
  place.cameBack = true;
  rank(place);
  return place.session;
}

std::shared_ptr<Session> MemorySessionTable::create() {
  if (places_.size() >= most_) {
    end(places_.find((expendable_.empty() ? valued_ : expendable_).front()->id));
  }
  auto session = std::make_shared<Session>(newSessionId(random_));
  if (const auto same = places_.find(session->id); same != places_.end()) end(same);
  session->lastAccess = clock_.now();
  lastNumber_ = lastNumber_ < kHighestNumber ? lastNumber_ + 1 : kLowestNumber;
  session->number = lastNumber_;
  places_[session->id] = {session, &expendable_,
                          expendable_.insert(expendable_.end(), session.get())};
  log_.LogLine("Session " + std::to_string(session->number) + " created");
  return session;
}

/// The session is the one used last, so it goes to the end of its list.
void MemorySessionTable::rank(Place& place) {
  Ranks& wanted = place.cameBack && place.session->holdsAnything() ? valued_ : expendable_;
  wanted.splice(wanted.end(), *place.list, place.rank);
  place.list = &wanted;
}

void MemorySessionTable::noteRun(Session& session) {
  const auto at = places_.find(session.id);
  if (at == places_.end()) return;
  if (session.isAbandoned) {
    end(at);
  } else {
    rank(at->second);
  }
}

MemorySessionTable::Places::iterator MemorySessionTable::end(Places::iterator at) {
  Place& place = at->second;
  const std::shared_ptr<Session> session = std::move(place.session);  // whose id the key is
  log_.LogLine("Session " + std::to_string(session->number) + " destroyed");
  place.list->erase(place.rank);
  const auto next = places_.erase(at);
  ended_.push_back(session);
  return next;
}

void MemorySessionTable::expire() {
  const TimePoint now = clock_.now();
  for (auto at = places_.begin(); at != places_.end();) {
    at = at->second.session->isOutOfDate(now) ? end(at) : std::next(at);
  }
}

void MemorySessionTable::endAll() {
  while (!places_.empty()) end(places_.begin());
}

std::shared_ptr<Session> MemorySessionTable::takeEnded() {
  if (ended_.empty()) return nullptr;
  auto session = std::move(ended_.front());
  ended_.pop_front();
  return session;
}

}  // namespace quorvane::customary
