#include <unistd.h>

#include "platform/environment.h"
#include "platform/system.h"
#include "platform/text_settings.h"

namespace quorvane {

namespace {

/// The variable QUORVANE_REGISTRY, else /etc/quorvane for the administrator, else the user's own
/// configuration folder.
std::string givenRoot() {
  if (std::string given = environmentText("QUORVANE_REGISTRY"); !given.empty()) return given;
  if (::geteuid() == 0) return "/etc/quorvane";
  if (const std::string xdg = environmentText("XDG_CONFIG_HOME"); !xdg.empty())
    return xdg + "/quorvane";
  return environmentText("HOME") + "/.config/quorvane";
}

}  // namespace

std::string settingsRoot() {
  return wholePath(givenRoot());
}

std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root) {
  return std::make_unique<TextSettings>(files, root);
}

}  // namespace quorvane
