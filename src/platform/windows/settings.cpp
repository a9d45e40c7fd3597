#include <windows.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/system.h"
#include "platform/text_settings.h"
#include "platform/windows/registry.h"

namespace quorvane {

namespace {

constexpr std::int32_t kHighestInstance = 999;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

constexpr const char* kRegistry = "registry";

}  // namespace

/// The variable QUORVANE_REGISTRY names a tree of text files; without it there is the registry.
std::string settingsRoot() {
  const std::string given = environment("QUORVANE_REGISTRY");
  if (given.empty()) return kRegistry;
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(given, error);
  return error ? given : whole.lexically_normal().string();
}

/// The variable QUORVANE_INSTANCE, from 1 to 999.
std::int32_t instanceNumber() {
  const std::string text = environment("QUORVANE_INSTANCE");
  std::int32_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = read.ec == std::errc() && read.ptr == text.data() + text.size();
  return isWhole && number > 0 && number <= kHighestInstance ? number : 0;
}

std::unique_ptr<SettingsStorage> makeSettingsStorage(const Files& files, const std::string& root) {
  if (root == kRegistry) return makeRegistry();
  return std::make_unique<TextSettings>(files, root);
}

}  // namespace quorvane
