#pragma once

#include <string>

#include "platform/settings_storage.h"

namespace quorvane {

/// Text values by root, key and name. Failures are silent: false or an empty text. A machine name
/// asks for the store of another machine; there is no way to one, so such calls fail.
class Registry {
 public:
  /// The storage outlives the registry.
  explicit Registry(SettingsStorage& storage) : storage_(storage) {}

  /// True when the key is there afterwards.
  bool CreateRegKey(RegistryRoot root, const std::string& key, const std::string& machine = "");

  /// The key must exist.
  bool SetRegString(RegistryRoot root, const std::string& key, const std::string& name,
                    const std::string& text, const std::string& machine = "");

  std::string GetRegString(RegistryRoot root, const std::string& key, const std::string& name,
                           const std::string& machine = "") const;

  /// A key as ReadRegValue reads from it.
  struct OpenKey {
    RegistryRoot root;
    std::string key;
  };

  /// Texts up to their first NUL, short binary values as a 16-bit number in decimal, nothing of
  /// any other type.
  std::string ReadRegValue(const OpenKey& key, const std::string& name) const;

 private:
  SettingsStorage& storage_;
};

/// The text up to its first NUL.
std::string TrimAtNul(std::string text);

}  // namespace quorvane
