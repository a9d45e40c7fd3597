#include "platform/environment.h"
#include "platform/system.h"
#include "platform/text_settings.h"
#include "platform/windows/registry.h"

namespace quorvane {

namespace {

constexpr const char* kRegistry = "registry";

}  // namespace

/// The variable QUORVANE_REGISTRY names a tree of text files; without it there is the registry.
std::string settingsRoot() {
  const std::string given = environmentText("QUORVANE_REGISTRY");
  return given.empty() ? kRegistry : wholePath(given);
}

std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root) {
  if (root == kRegistry) return makeRegistry();
  return std::make_unique<TextSettings>(files, root);
}

}  // namespace quorvane
