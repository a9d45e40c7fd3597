#include "startup/untaken_settings.h"

#include <algorithm>

#include "components/ado/redirects.h"
#include "startup/mainMod.h"
#include "startup/setting_rules.h"
#include "support/text.h"
#include "support/visible_text.h"

namespace quorvane {

namespace {

constexpr std::size_t kMostShown = 80;

/// A text from a file that may hold anything, for a line that people read.
std::string shown(const std::string& text) {
  return visible(text, kMostShown);
}

const SettingRule* ruleFor(const std::string& name) {
  const auto rules = settingRules();
  const auto rule = std::find_if(rules.begin(), rules.end(),
                                 [&](const SettingRule& r) { return equalsNoCase(r.name, name); });
  return rule == rules.end() ? nullptr : &*rule;
}

std::string reasonAgainst(const StoredLine& line, const std::vector<StoredLine>& all) {
  if (!line.name) return "it has no \"=\"";
  const SettingRule* rule = ruleFor(*line.name);
  if (!rule) return "there is no setting \"" + shown(*line.name) + "\"";
  const auto first = std::find_if(all.begin(), all.end(), [&](const StoredLine& other) {
    return other.name && equalsNoCase(*other.name, *line.name);
  });
  if (first->number != line.number) {
    return std::string(rule->name) + " stands in line " + std::to_string(first->number) +
           ", which counts";
  }
  ServerState unused;
  const std::string_view fault = rule->take(unused, line.text);
  if (fault.empty()) return "";
  return std::string(rule->name) + " is \"" + shown(line.text) + "\"; " + std::string(fault);
}

}  // namespace

std::vector<std::string> untakenSettings(const SettingsStorage& storage) {
  std::vector<std::string> untaken;
  const auto lines = storage.lines(RegistryRoot::LocalMachine, mainMod::kServerKey);
  for (const StoredLine& line : lines) {
    const std::string reason = reasonAgainst(line, lines);
    if (reason.empty()) continue;
    untaken.push_back("Settings line " + std::to_string(line.number) + " not taken: " + reason);
  }
  for (const StoredLine& line : storage.lines(RegistryRoot::LocalMachine, ado::Redirects::kKey)) {
    const std::string reason = ado::Redirects::fault(line);
    if (reason.empty()) continue;
    untaken.push_back("Settings line " + std::to_string(line.number) +
                      " of Databases not taken: " + reason);
  }
  return untaken;
}

}  // namespace quorvane
