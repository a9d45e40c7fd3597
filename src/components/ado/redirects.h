#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
class SettingsStorage;
struct StoredLine;
}  // namespace quorvane

namespace quorvane::ado {

/// Which texts stand for the connection texts of pages, as the operator has it: so that a page need
/// not be changed when its database has moved.
class Redirects {
 public:
  /// A sub-key of the server's. Its values are numbered, and each is "pattern -> text".
  static constexpr const char* kKey = "Software\\Ardenfell\\Quorvane\\Server\\Databases";

  Redirects() = default;
  explicit Redirects(const SettingsStorage& settings);

  /// The text of the lowest number whose pattern, with "*" and "?" and in any letter case, is what
  /// the page says. Null: the page's own counts.
  const std::string* find(std::string_view text) const;

  /// Why a line of the key does not count; empty when it does.
  static std::string fault(const StoredLine& line);

 private:
  struct Rule {
    std::int32_t number = 0;
    std::string pattern;
    std::string text;
  };
  static bool read(const StoredLine& line, Rule& rule);

  std::vector<Rule> rules_;  ///< by their numbers
};

}  // namespace quorvane::ado
