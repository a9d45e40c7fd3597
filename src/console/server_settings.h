#pragma once

#include <string>

namespace quorvane {

/// What a starting server asks of the settings store.
class ServerSettings {
 public:
  virtual ~ServerSettings() = default;

  /// Reads every setting into the server state; missing ones are stored with their defaults.
  virtual void LoadSettings() = 0;

  /// The language this user has chosen, as text; empty when none.
  virtual std::string userLanguage() const = 0;
};

}  // namespace quorvane
