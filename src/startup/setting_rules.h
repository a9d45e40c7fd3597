#pragma once

#include <span>
#include <string>
#include <string_view>

#include "support/server_state.h"

namespace quorvane {

/// One of the server's settings.
struct SettingRule {
  std::string_view name;
  std::string_view defaultText;  ///< stored where the setting is missing; empty: nothing is stored

  /// Takes the text over into the state. What is wrong with a text that does not count as it
  /// stands, and what counts in its place; empty for every other text.
  std::string_view (*take)(ServerState& state, const std::string& text);
};

/// All of them, in the order in which they are read.
std::span<const SettingRule> settingRules();

}  // namespace quorvane
