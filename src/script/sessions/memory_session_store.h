#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <vector>

#include "platform/clock.h"
#include "platform/random.h"
#include "script/sessions/session_store.h"
#include "support/status_lines.h"

namespace quorvane {

/// Sessions of this process alone.
class MemorySessionStore final : public SessionStore {
 public:
  /// All outlive the store.
  MemorySessionStore(const Clock& clock, Random& random, StatusLines& log);
  MemorySessionStore(const MemorySessionStore&) = delete;
  MemorySessionStore& operator=(const MemorySessionStore&) = delete;
  ~MemorySessionStore() override;

  vbs::Ref<aspSessionObj> getOrCreate(std::int32_t number) override;
  void noteRun(std::int32_t number) override;
  void remove(std::int32_t number) override;
  void expire() override;
  void forEach(const std::function<void(const aspSessionObj&)>& visit) const override;

  std::size_t size() const override { return ages_.size(); }

 private:
  using Numbers = std::list<std::int32_t>;
  struct Place {
    vbs::Ref<aspSessionObj> session;  ///< null: the number is free
    Numbers::iterator age;
    Numbers::iterator idle;
    Numbers* rank = nullptr;  ///< the list that `idle` is in
    bool cameBack = false;
  };

  vbs::Ref<aspSessionObj> find(std::int32_t number) const;  ///< null when there is none
  vbs::Ref<aspSessionObj> create();
  std::int32_t freeNumber();
  std::int32_t nextFreeNumber(std::int32_t number) const;
  void setTaken(std::int32_t number, bool taken);
  std::int32_t dropIdlest();  ///< the number that is free now
  void rank(Place& place);
  void endLooseCircles();

  const Clock& clock_;
  Random& random_;
  StatusLines& log_;
  std::vector<Place> places_{kHighestNumber + 1};  ///< by number
  Numbers ages_;                                   ///< the numbers taken, oldest session first
  // The same numbers, those idle longest first.
  Numbers expendable_;  ///< never came back, or hold nothing
  Numbers valued_;
  bool mayHaveCircles_ = false;  ///< objects of removed sessions may still hold each other

  static constexpr std::size_t kWords = kHighestNumber / 64 + 1;
  std::array<std::uint64_t, kWords> taken_{};  ///< a bit for each number
};

}  // namespace quorvane
