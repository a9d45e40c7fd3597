#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/system.h"
#include "platform/text_settings.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::int32_t kHighestInstance = 999;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

/// The variable QUORVANE_REGISTRY, else /etc/quorvane for the administrator, else the user's own
/// configuration folder.
std::string givenRoot() {
  if (std::string given = environment("QUORVANE_REGISTRY"); !given.empty()) return given;
  if (::geteuid() == 0) return "/etc/quorvane";
  if (const std::string xdg = environment("XDG_CONFIG_HOME"); !xdg.empty())
    return xdg + "/quorvane";
  return environment("HOME") + "/.config/quorvane";
}

}  // namespace

std::string settingsRoot() {
  std::error_code error;
  const std::string given = givenRoot();
  const std::filesystem::path whole = std::filesystem::absolute(given, error);
  return error ? given : whole.lexically_normal().string();
}

/// The variable QUORVANE_INSTANCE, from 1 to 999.
std::int32_t instanceNumber() {
  const auto number = wholeNumber<std::int32_t>(environment("QUORVANE_INSTANCE"));
  return number && *number > 0 && *number <= kHighestInstance ? *number : 0;
}

std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root) {
  return std::make_unique<TextSettings>(files, root);
}

}  // namespace quorvane
