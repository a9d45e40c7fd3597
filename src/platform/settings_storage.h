#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// Where settings are kept between runs: values by name, in keys that form trees. A key is a text
/// of parts joined by backslashes; keys and names are found without regard to letter case.

enum class RegistryRoot : std::int32_t {
  CurrentUser = 0,
  LocalMachine = 1,
  Users = 2,
  ClassesRoot = 3,
};

enum class StoredType : std::uint8_t { Text, ExpandableText, Binary, Other };

struct StoredValue {
  StoredType type = StoredType::Text;
  std::string data;

  friend bool operator==(const StoredValue&, const StoredValue&) = default;
};

/// A value as it stands in the store, for telling people what is wrong with it.
struct StoredLine {
  std::size_t number = 0;           ///< of the line, from 1
  std::optional<std::string> name;  ///< nothing: the line is no value
  std::string text;
};

/// Failures (no rights, no such key, a name the store can't hold) are empty or false results. A
/// root outside the enumeration holds no keys and takes none.
class SettingsStorage {
 public:
  virtual ~SettingsStorage() = default;

  virtual bool keyExists(RegistryRoot root, const std::string& key) const = 0;
  virtual bool createKey(RegistryRoot root, const std::string& key) = 0;  ///< true if it exists
  virtual std::optional<StoredValue> read(RegistryRoot root, const std::string& key,
                                          const std::string& name) const = 0;
  /// The key must exist.
  virtual bool writeText(RegistryRoot root, const std::string& key, const std::string& name,
                         const std::string& text) = 0;

  /// What a key holds, in the store's own order; comments are left out. Of values with the same
  /// name the first is the one that `read` reads.
  virtual std::vector<StoredLine> lines(RegistryRoot root, const std::string& key) const = 0;
};

}  // namespace quorvane
