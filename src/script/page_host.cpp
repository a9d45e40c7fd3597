#include "script/page_host.h"

#include "components/components.h"
#include "script/script_values.h"

namespace quorvane {

double PageHost::now() {
  return script_values::days(clock_.local(clock_.now()));
}

double PageHost::secondsSinceMidnight() {
  const TimePoint now = clock_.now();
  const CalendarTime local = clock_.local(now);
  const auto fraction = now - std::chrono::floor<std::chrono::seconds>(now);
  return local.hour * 3600 + local.minute * 60 + local.second +
         std::chrono::duration<double>(fraction).count();
}

std::chrono::steady_clock::time_point PageHost::steadyNow() {
  return clock_.steadyNow();
}

vbs::Value PageHost::createObject(std::string_view progId) {
  return createComponent(progId);
}

vbs::Value PageHost::getObject(std::string_view, std::string_view) {
  vbs::throwError(vbs::ErrorCode::CannotCreateObject);
}

}  // namespace quorvane
