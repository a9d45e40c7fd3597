#include "components/ado/sql/declared_type.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "support/text.h"

namespace quorvane::ado {

namespace {

using Entry = std::pair<std::string_view, ColumnKind>;

/// Exact names, sorted; what is not here is told by SQLite's own rules for parts of names.
constexpr std::array kTypes = {
    Entry{"autoincrement", ColumnKind::Number},
    Entry{"bigint", ColumnKind::Number},
    Entry{"binary", ColumnKind::Binary},
    Entry{"bit", ColumnKind::Boolean},
    Entry{"blob", ColumnKind::Binary},
    Entry{"bool", ColumnKind::Boolean},
    Entry{"boolean", ColumnKind::Boolean},
    Entry{"byte", ColumnKind::Number},
    Entry{"counter", ColumnKind::Number},
    Entry{"currency", ColumnKind::Number},
    Entry{"date", ColumnKind::Date},
    Entry{"datetime", ColumnKind::Date},
    Entry{"datetime2", ColumnKind::Date},
    Entry{"general", ColumnKind::Binary},
    Entry{"guid", ColumnKind::Text},
    Entry{"hyperlink", ColumnKind::Text},
    Entry{"image", ColumnKind::Binary},
    Entry{"logical", ColumnKind::Boolean},
    Entry{"logical1", ColumnKind::Boolean},
    Entry{"long binary", ColumnKind::Binary},
    Entry{"longbinary", ColumnKind::Binary},
    Entry{"longblob", ColumnKind::Binary},
    Entry{"mediumblob", ColumnKind::Binary},
    Entry{"memo", ColumnKind::Text},
    Entry{"note", ColumnKind::Text},
    Entry{"oleobject", ColumnKind::Binary},
    Entry{"rowversion", ColumnKind::Binary},
    Entry{"smalldatetime", ColumnKind::Date},
    Entry{"string", ColumnKind::Text},
    Entry{"time", ColumnKind::Date},
    Entry{"timestamp", ColumnKind::Date},
    Entry{"tinyblob", ColumnKind::Binary},
    Entry{"uniqueidentifier", ColumnKind::Text},
    Entry{"varbinary", ColumnKind::Binary},
    Entry{"xml", ColumnKind::Text},
    Entry{"yesno", ColumnKind::Boolean},
};
static_assert(std::is_sorted(kTypes.begin(), kTypes.end()));

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != text.npos;
}

bool isTextByName(std::string_view lower) {
  return contains(lower, "char") || contains(lower, "clob") || contains(lower, "text");
}

}  // namespace

DeclaredType declaredType(std::string_view text) {
  DeclaredType type;
  const std::size_t open = text.find('(');
  type.name = lowerCase(trimBlanks(text.substr(0, open)));
  if (type.name.ends_with(" text")) type.name.resize(type.name.size() - 5);  // see declaredForText
  if (open == text.npos) return type;
  const char* const end = text.data() + text.size();
  const auto size = std::from_chars(text.data() + open + 1, end, type.size);
  if (size.ptr != end && *size.ptr == ',') {
    const char* scale = size.ptr + 1;
    while (scale != end && *scale == ' ') ++scale;
    std::from_chars(scale, end, type.scale);
  }
  return type;
}

ColumnKind kindOfDeclared(std::string_view text) {
  const std::string name = declaredType(text).name;
  if (name.empty()) return ColumnKind::Unknown;
  const auto found =
      std::lower_bound(kTypes.begin(), kTypes.end(), name,
                       [](const Entry& e, const std::string& n) { return e.first < n; });
  if (found != kTypes.end() && found->first == name) return found->second;
  if (isTextByName(name)) return ColumnKind::Text;
  return contains(name, "blob") ? ColumnKind::Binary : ColumnKind::Number;
}

std::string declaredForText(const std::string& type) {
  if (kindOfDeclared(type) != ColumnKind::Text || isTextByName(lowerCase(type))) return type;
  return type + " TEXT";
}

}  // namespace quorvane::ado
