#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::ado {

/// The parts of a connection text: "Provider=..;Data Source=..". Values may stand in quotes or
/// braces. A later part of the same name wins.
class ConnectionParts {
 public:
  explicit ConnectionParts(std::string_view text);

  /// Names in lower case. Nothing when the part is missing.
  std::optional<std::string> find(std::string_view name) const;
  /// The first of them that is there.
  std::optional<std::string> findAny(std::initializer_list<std::string_view> names) const;
  bool empty() const { return parts_.empty(); }
  /// In their order.
  const std::vector<std::pair<std::string, std::string>>& all() const { return parts_; }
  /// The text without any of the customary spellings of a password.
  std::string withoutPassword() const;

 private:
  std::vector<std::pair<std::string, std::string>> parts_;  ///< in order, names in lower case
  std::vector<std::string> spelled_;
};

enum class Engine : std::uint8_t {
  Unknown,  ///< no provider of that name
  Jet,      ///< an Access file: SQLite, with Jet's errors and types
  Ace,      ///< the same under its later name
  Sqlite,
  Odbc,  ///< a data source name or another system's server
};

/// What a connection text asks for.
struct ConnectionTarget {
  Engine engine = Engine::Unknown;
  std::string file;       ///< of Jet, Ace and Sqlite, as written
  bool odbcForm = false;  ///< Driver=..: errors come as those of the drivers do
};

/// `provider` is the connection's Provider property, which stands where the text names none.
ConnectionTarget connectionTarget(std::string_view text, std::string_view provider);

}  // namespace quorvane::ado
