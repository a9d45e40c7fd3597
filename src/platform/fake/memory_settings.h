#pragma once

#include <map>

#include "platform/settings_storage.h"
#include "support/text.h"

namespace quorvane {

/// Settings in memory, for tests.
class MemorySettings final : public SettingsStorage {
 public:
  bool keyExists(RegistryRoot root, const std::string& key) const override {
    return keys.contains(place(root, key));
  }
  bool createKey(RegistryRoot root, const std::string& key) override {
    if (readOnly || !isRoot(root)) return keyExists(root, key);
    keys[place(root, key)];
    return true;
  }
  std::optional<StoredValue> read(RegistryRoot root, const std::string& key,
                                  const std::string& name) const override {
    const auto values = keys.find(place(root, key));
    if (values == keys.end()) return std::nullopt;
    const auto value = values->second.find(lowerCase(name));
    if (value == values->second.end()) return std::nullopt;
    return value->second;
  }
  bool writeText(RegistryRoot root, const std::string& key, const std::string& name,
                 const std::string& text) override {
    return put(root, key, name, {StoredType::Text, text});
  }
  std::vector<StoredLine> lines(RegistryRoot root, const std::string& key) const override {
    std::vector<StoredLine> all;
    const auto values = keys.find(place(root, key));
    if (values == keys.end()) return all;
    for (const auto& [name, value] : values->second) {
      all.push_back({all.size() + 1, name, value.data});
    }
    return all;
  }
  bool put(RegistryRoot root, const std::string& key, const std::string& name, StoredValue value) {
    if (readOnly || !keyExists(root, key)) return false;
    keys[place(root, key)][lowerCase(name)] = std::move(value);
    return true;
  }

  using Place = std::pair<RegistryRoot, std::string>;
  static Place place(RegistryRoot root, const std::string& key) { return {root, lowerCase(key)}; }

  std::map<Place, std::map<std::string, StoredValue>> keys;
  bool readOnly = false;

 private:
  static bool isRoot(RegistryRoot root) {
    return root >= RegistryRoot::CurrentUser && root <= RegistryRoot::ClassesRoot;
  }
};

}  // namespace quorvane
