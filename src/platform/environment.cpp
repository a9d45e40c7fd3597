#include "platform/environment.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/system.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::int32_t kHighestInstance = 999;

}  // namespace

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string wholePath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error);
  return error ? path : whole.lexically_normal().string();
}

/// The variable QUORVANE_INSTANCE, from 1 to 999.
std::int32_t instanceNumber() {
  const auto number = wholeNumber<std::int32_t>(environmentText("QUORVANE_INSTANCE"));
  return number && *number > 0 && *number <= kHighestInstance ? *number : 0;
}

}  // namespace quorvane
