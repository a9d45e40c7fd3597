#pragma once

#include <string>

#include "console/server_settings.h"
#include "startup/Registry.h"
#include "support/server_state.h"

namespace quorvane {

/// The server's settings in the registry. Reading a setting that is missing, or empty, stores its
/// default.
class mainMod final : public ServerSettings {
 public:
  static constexpr const char* kServerKey = "Software\\Ardenfell\\Quorvane\\Server";
  static constexpr const char* kProgramKey = "Software\\Ardenfell\\Quorvane";
  static constexpr const char* kUserKey = "Software\\Ardenfell\\Quorvane\\Misc";

  /// Both outlive the settings.
  mainMod(Registry& registry, ServerState& state) : registry_(registry), state_(state) {}

  /// The text of a setting. Backslashes in the name lead to sub-keys of the server's key. With an
  /// empty default nothing is ever written.
  std::string GetServerSetting(const std::string& name, const std::string& defaultText,
                               bool machineWide = true);
  void SaveServerSetting(const std::string& name, const std::string& text, bool machineWide = true);

  void LoadSettings() override;
  std::string userLanguage() const override;

  /// The base folder of developer mode; empty when none is set.
  std::string developerFolder() const;

 private:
  Registry& registry_;
  ServerState& state_;
};

}  // namespace quorvane
