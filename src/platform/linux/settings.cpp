#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/system.h"
#include "platform/text_settings.h"

namespace quorvane {

namespace {

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

std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root) {
  return std::make_unique<TextSettings>(files, root);
}

}  // namespace quorvane
