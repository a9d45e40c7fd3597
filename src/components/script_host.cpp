#include "components/script_host.h"

#include "components/components.h"
#include "platform/clock.h"
#include "platform/process.h"
#include "support/server_state.h"
#include "vbscript/values/serial_date.h"

namespace quorvane {

namespace {

int secondOfDay(const CalendarTime& time) {
  return time.hour * 3600 + time.minute * 60 + time.second;
}

}  // namespace

double ScriptHost::now() {
  const CalendarTime local = services_.clock.local(services_.clock.now());
  return vbs::combineDate(vbs::dayNumber(local.year, local.month, local.day), secondOfDay(local));
}

double ScriptHost::secondsSinceMidnight() {
  const TimePoint now = services_.clock.now();
  const auto fraction = now - std::chrono::floor<std::chrono::seconds>(now);
  return secondOfDay(services_.clock.local(now)) + std::chrono::duration<double>(fraction).count();
}

std::chrono::steady_clock::time_point ScriptHost::steadyNow() {
  return services_.clock.steadyNow();
}

bool ScriptHost::mustEnd() {
  if (!services_.process.isAskedToEnd()) return false;
  if (!ends_) ends_ = steadyNow() + std::chrono::seconds{services_.state.DrainSeconds};
  return steadyNow() >= *ends_;
}

vbs::Value ScriptHost::createObject(std::string_view progId) {
  return createComponent(progId, services_);
}

vbs::Value ScriptHost::getObject(std::string_view pathName, std::string_view progId) {
  return getSystemObject(pathName, progId, services_);
}

}  // namespace quorvane
