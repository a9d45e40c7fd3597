#include "automation/system_objects.h"

#include <thread>

namespace quorvane::automation {

std::optional<vbs::Value> createObject(std::string_view) {
  return std::nullopt;
}

bool hasClass(std::string_view) {
  return false;
}

vbs::Value getObject(std::string_view, std::string_view) {
  vbs::throwError(vbs::ErrorCode::CannotCreateObject);
}

void takeCalls() {}

bool othersCall() {
  return false;
}

void sleep(std::chrono::milliseconds time) {
  std::this_thread::sleep_for(time);
}

}  // namespace quorvane::automation
