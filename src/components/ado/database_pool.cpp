#include "components/ado/database_pool.h"

#include <algorithm>
#include <utility>

#include "platform/clock.h"

namespace quorvane::ado {

DatabasePool::DatabasePool(const Clock& clock, const SettingsStorage* settings)
    : clock_(clock), redirects_(settings ? Redirects(*settings) : Redirects()) {}

std::unique_ptr<Database> DatabasePool::take(const std::string& way) {
  expire();
  for (std::size_t i = idle_.size(); i-- > 0;) {
    if (idle_[i].way != way) continue;
    std::unique_ptr<Database> database = std::move(idle_[i].database);
    idle_.erase(idle_.begin() + static_cast<std::ptrdiff_t>(i));
    if (database->wake()) return database;
  }
  return nullptr;
}

void DatabasePool::keep(std::string way, std::unique_ptr<Database> database) {
  if (!database->rest()) return;
  idle_.push_back({std::move(way), std::move(database), clock_.steadyNow()});
  if (idle_.size() > kMost) idle_.erase(idle_.begin());
}

void DatabasePool::expire() {
  const auto now = clock_.steadyNow();
  std::erase_if(idle_, [&](const Idle& idle) { return now - idle.since >= kLongest; });
}

}  // namespace quorvane::ado
