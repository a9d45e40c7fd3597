#include "components/ado/connection_text.h"

#include <algorithm>
#include <array>

#include "support/text.h"

namespace quorvane::ado {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

/// A value in marks, up to its closing mark (a doubled one stands for itself); `at` stands on the
/// opening one and is moved behind the closing one.
std::string marked(std::string_view text, std::size_t& at) {
  const char close = text[at] == '{' ? '}' : text[at];
  std::string value;
  for (++at; at < text.size(); ++at) {
    if (text[at] == close) {
      if (at + 1 == text.size() || text[at + 1] != close) break;
      ++at;
    }
    value += text[at];
  }
  if (at < text.size()) ++at;
  return value;
}

/// How a provider or a driver is known.
struct Known {
  std::string_view part;  ///< of its name, in lower case
  Engine engine;
};

constexpr std::array kProviders = {
    Known{"microsoft.jet.oledb", Engine::Jet},
    Known{"microsoft.ace.oledb", Engine::Ace},
    Known{"sqlite", Engine::Sqlite},
    Known{"sqloledb", Engine::Odbc},
    Known{"sqlncli", Engine::Odbc},
    Known{"msoledbsql", Engine::Odbc},
    Known{"msdaora", Engine::Odbc},
    Known{"oraoledb", Engine::Odbc},
    Known{"mysqlprov", Engine::Odbc},
    Known{"pgoledb", Engine::Odbc},
};

constexpr std::array kDrivers = {
    Known{"microsoft access", Engine::Jet},
    Known{"*.mdb", Engine::Jet},
    Known{"sqlite", Engine::Sqlite},
};

constexpr std::array<std::string_view, 8> kFileEndings = {".mdb", ".accdb",  ".mde",     ".db",
                                                          ".db3", ".sqlite", ".sqlite3", ".asa"};

bool namesFile(std::string_view value) {
  const std::string lower = lowerCase(value);
  for (const std::string_view ending : kFileEndings) {
    if (lower.ends_with(ending)) return true;
  }
  return false;
}

Engine engineOfFile(std::string_view file) {
  const std::string lower = lowerCase(file);
  if (lower.ends_with(".accdb")) return Engine::Ace;
  return lower.ends_with(".mdb") || lower.ends_with(".mde") || lower.ends_with(".asa")
             ? Engine::Jet
             : Engine::Sqlite;
}

template <std::size_t N>
std::optional<Engine> engineOf(const std::array<Known, N>& table, std::string_view name) {
  const std::string lower = lowerCase(name);
  for (const Known& known : table) {
    if (lower.find(known.part) != lower.npos) return known.engine;
  }
  return std::nullopt;
}

bool isFileEngine(Engine engine) {
  return engine == Engine::Jet || engine == Engine::Ace || engine == Engine::Sqlite;
}

}  // namespace

ConnectionParts::ConnectionParts(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t begin = at;
    const std::size_t equals = text.find_first_of("=;", at);
    if (equals == text.npos || text[equals] == ';') {
      at = equals == text.npos ? text.size() : equals + 1;
      continue;
    }
    const std::string name = lowerCase(trimmed(text.substr(at, equals - at), kBlanks));
    at = equals + 1;
    at = std::min(text.find_first_not_of(kBlanks, at), text.size());
    std::string value;
    const bool hasMark =
        at < text.size() && (text[at] == '"' || text[at] == '\'' || text[at] == '{');
    if (hasMark) value = marked(text, at);
    const std::size_t end = std::min(text.find(';', at), text.size());
    if (!hasMark) value = trimmed(text.substr(at, end - at), kBlanks);
    parts_.emplace_back(name, std::move(value));
    spelled_.emplace_back(trimmed(text.substr(begin, end - begin), kBlanks));
    at = end + 1;
  }
}

std::optional<std::string> ConnectionParts::find(std::string_view name) const {
  for (auto part = parts_.rbegin(); part != parts_.rend(); ++part) {
    if (part->first == name) return part->second;
  }
  return std::nullopt;
}

std::optional<std::string> ConnectionParts::findAny(
    std::initializer_list<std::string_view> names) const {
  for (const std::string_view name : names) {
    if (auto value = find(name); value && !value->empty()) return value;
  }
  return std::nullopt;
}

std::string ConnectionParts::withoutPassword() const {
  std::string text;
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    const std::string& name = parts_[i].first;
    if (name == "pwd" || name.ends_with("password")) continue;
    text += spelled_[i] + ";";
  }
  return text;
}

ConnectionTarget connectionTarget(std::string_view text, std::string_view provider) {
  const ConnectionParts parts(text);
  ConnectionTarget target;
  const std::string named = parts.find("provider").value_or(std::string(provider));
  const auto driver = parts.find("driver");
  target.file =
      parts.findAny({"data source", "datasource", "dbq", "database", "dbname", "initial catalog"})
          .value_or("");
  if (parts.empty())
    target.file = std::string(trimmed(text, kBlanks));  // the provider is said elsewhere
  if (driver) {
    target.engine = engineOf(kDrivers, *driver).value_or(Engine::Odbc);
    target.odbcForm = true;
  } else if (!named.empty() && !startsWithNoCase(named, "msdasql")) {
    target.engine = engineOf(kProviders, named).value_or(Engine::Unknown);
  } else if (namesFile(target.file)) {
    target.engine = engineOfFile(target.file);
  } else {
    target.engine = Engine::Odbc;
    target.odbcForm = true;
  }
  const std::string extended = lowerCase(parts.find("extended properties").value_or(""));
  if (isFileEngine(target.engine) && !extended.empty()) {
    for (const char* other : {"excel", "text", "dbase", "paradox", "html"}) {
      if (extended.find(other) != extended.npos) target.engine = Engine::Unknown;
    }
  }
  if (!isFileEngine(target.engine)) target.file.clear();
  return target;
}

}  // namespace quorvane::ado
