#include "qvscript/console_host.h"

#include <ctime>

#include "components/components.h"
#include "vbscript/values/serial_date.h"

namespace quorvane::qvscript {

namespace {

std::tm localTime(std::chrono::system_clock::time_point now) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const std::tm* fields = std::localtime(&seconds);
  return fields ? *fields : std::tm{};
}

}  // namespace

double ConsoleHost::now() {
  const std::tm local = localTime(std::chrono::system_clock::now());
  const auto day = vbs::dayNumber(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
  return vbs::combineDate(day, local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
}

double ConsoleHost::secondsSinceMidnight() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const std::tm local = localTime(now);
  const auto fraction = now - floor<seconds>(now);
  return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec +
         duration<double>(fraction).count();
}

std::chrono::steady_clock::time_point ConsoleHost::steadyNow() {
  return std::chrono::steady_clock::now();
}

vbs::Value ConsoleHost::createObject(std::string_view progId) {
  return createComponent(progId);
}

vbs::Value ConsoleHost::getObject(std::string_view, std::string_view) {
  vbs::throwError(vbs::ErrorCode::CannotCreateObject);
}

}  // namespace quorvane::qvscript
