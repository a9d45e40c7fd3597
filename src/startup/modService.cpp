#include "startup/modService.h"

#include <algorithm>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::chrono::seconds kPatience{5};
constexpr std::chrono::milliseconds kBetweenLooks{50};

}  // namespace

bool modService::lists(ServiceManager::Scope scope) const {
  const auto names = manager_.serviceNames(scope);
  return std::any_of(names.begin(), names.end(),
                     [](const std::string& name) { return equalsNoCase(name, kServiceName); });
}

modService::Status modService::status() const {
  if (!system_.isNT()) return {};
  if (lists(ServiceManager::Scope::Active)) return {true, true};
  return {lists(ServiceManager::Scope::All), false};
}

bool modService::start() {
  const Status before = status();
  if (!before.installed || before.running) return before.running;
  if (!manager_.requestStart(kServiceName)) return false;
  return waitUntil(true).running;
}

bool modService::stop() {
  if (!system_.isNT() || !status().installed) return true;
  if (!manager_.requestStop(kServiceName)) return !status().running;
  return !waitUntil(false).running;
}

modService::Status modService::waitUntil(bool running) {
  const TimePoint end = clock_.now() + kPatience;
  Status now = status();
  while (now.running != running && clock_.now() < end) {
    loop_.runPending(kBetweenLooks, nullptr);
    now = status();
  }
  return now;
}

}  // namespace quorvane
