#include "components/ado/redirects.h"

#include <algorithm>

#include "components/file_system/path_text.h"
#include "platform/settings_storage.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

constexpr std::string_view kArrow = "->";

}  // namespace

Redirects::Redirects(const SettingsStorage& settings) {
  for (const StoredLine& line : settings.lines(RegistryRoot::LocalMachine, kKey)) {
    Rule rule;
    if (read(line, rule)) rules_.push_back(std::move(rule));
  }
  std::stable_sort(rules_.begin(), rules_.end(),
                   [](const Rule& a, const Rule& b) { return a.number < b.number; });
}

bool Redirects::read(const StoredLine& line, Rule& rule) {
  const auto number = line.name ? numericLong(*line.name) : std::nullopt;
  const std::size_t arrow = line.text.find(kArrow);
  if (!number || arrow == line.text.npos) return false;
  const std::string_view text = line.text;
  rule.number = *number;
  rule.pattern = trimBlanks(text.substr(0, arrow));
  rule.text = trimBlanks(text.substr(arrow + kArrow.size()));
  return !rule.pattern.empty() && !rule.text.empty();
}

std::string Redirects::fault(const StoredLine& line) {
  Rule rule;
  if (read(line, rule)) return "";
  return line.name && numericLong(*line.name) ? "it is no \"pattern -> text\""
                                              : "it is no number, \"=\" and \"pattern -> text\"";
}

const std::string* Redirects::find(std::string_view text) const {
  const std::string_view given = trimBlanks(text);
  for (const Rule& rule : rules_) {
    if (path_text::matches(given, rule.pattern)) return &rule.text;
  }
  return nullptr;
}

}  // namespace quorvane::ado
