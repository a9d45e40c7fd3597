#include "components/ado/odbc/statements.h"

#include <algorithm>
#include <array>

#include "components/ado/odbc/values.h"
#include "components/ado/sql/tokens.h"
#include "support/text.h"

namespace quorvane::ado {

namespace {

OdbcServer serverOf(const std::string& system) {
  const auto names = [&](std::string_view part) { return findNoCase(system, part) != system.npos; };
  if (names("postgres")) return OdbcServer::PostgreSql;
  if (names("mysql") || names("mariadb")) return OdbcServer::MySql;
  return names("sql server") ? OdbcServer::SqlServer : OdbcServer::Other;
}

/// How many tokens from `at` on ask for the last insertion's number; 0: none.
std::size_t identityAt(const std::vector<Token>& tokens, std::size_t at) {
  if (tokens[at].kind == TokenKind::Variable && tokens[at].text == "identity") return 1;
  const bool isCall = tokens[at].isWord("SCOPE_IDENTITY") && at + 2 < tokens.size() &&
                      tokens[at + 1].isSymbol("(") && tokens[at + 2].isSymbol(")");
  return isCall ? 3 : 0;
}

}  // namespace

OdbcDialect::OdbcDialect(const OdbcNature& nature)
    : server_(serverOf(utf8Of(nature.system))), quote_(utf8Of(nature.quote)) {}

std::string OdbcDialect::quoted(std::string_view name) const {
  if (quote_.empty()) return std::string(name);
  return quote_ + replaceAll(name, quote_, quote_ + quote_) + quote_;
}

std::string OdbcDialect::list(const std::vector<std::string>& names) const {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + quoted(name);
  return text;
}

std::string OdbcDialect::where(const std::vector<std::string>& keys) const {
  std::string text;
  for (const std::string& key : keys) {
    text += (text.empty() ? " WHERE " : " AND ") + quoted(key) + " = ?";
  }
  return text;
}

std::string OdbcDialect::insertion(const std::string& table,
                                   const std::vector<std::string>& columns) const {
  if (columns.empty()) {
    return "INSERT INTO " + table +
           (server_ == OdbcServer::MySql ? " () VALUES ()" : " DEFAULT VALUES");
  }
  std::string places = "?";
  for (std::size_t i = 1; i < columns.size(); ++i) places += ", ?";
  return "INSERT INTO " + table + " (" + list(columns) + ") VALUES (" + places + ")";
}

std::string OdbcDialect::update(const std::string& table, const std::vector<std::string>& columns,
                                const std::vector<std::string>& keys) const {
  std::string set;
  for (const std::string& column : columns) {
    set += (set.empty() ? "" : ", ") + quoted(column) + " = ?";
  }
  return "UPDATE " + table + " SET " + set + where(keys);
}

std::string OdbcDialect::deletion(const std::string& table,
                                  const std::vector<std::string>& keys) const {
  return "DELETE FROM " + table + where(keys);
}

std::string OdbcDialect::selection(const std::string& table,
                                   const std::vector<std::string>& columns,
                                   const std::vector<std::string>& keys) const {
  return "SELECT " + list(columns) + " FROM " + table + where(keys);
}

std::string OdbcDialect::returning(const std::vector<std::string>& keys) const {
  return server_ == OdbcServer::PostgreSql ? " RETURNING " + list(keys) : "";
}

std::string OdbcDialect::newest() const {
  switch (server_) {
    case OdbcServer::PostgreSql:
      return "SELECT lastval()";
    case OdbcServer::MySql:
      return "SELECT LAST_INSERT_ID()";
    case OdbcServer::SqlServer:
      return "SELECT @@IDENTITY";
    default:
      return "";
  }
}

std::string OdbcDialect::spelled(const std::string& text) const {
  const char* call = server_ == OdbcServer::PostgreSql ? "lastval()"
                     : server_ == OdbcServer::MySql    ? "LAST_INSERT_ID()"
                                                       : nullptr;
  if (!call || findNoCase(text, "identity") == text.npos) return text;
  std::string result;
  std::size_t done = 0;
  const std::vector<Token> tokens = sqlTokens(text);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::size_t count = identityAt(tokens, i);
    if (count == 0) continue;
    result += text.substr(done, tokens[i].begin - done) + call;
    i += count - 1;
    done = tokens[i].end;
  }
  return result + text.substr(done);
}

std::string OdbcDialect::resetting() const {
  return server_ == OdbcServer::PostgreSql ? "DISCARD ALL" : "";
}

bool OdbcDialect::leavesNoTraces(const std::string& text) const {
  if (!resetting().empty()) return true;
  if (server_ != OdbcServer::MySql) return false;
  // Marks and comments that this server reads in a way of its own.
  if (text.find_first_of("\\#") != text.npos || text.find("/*") != text.npos) return false;
  static constexpr std::array<std::string_view, 5> kPlain = {"SELECT", "INSERT", "UPDATE", "DELETE",
                                                             "REPLACE"};
  bool first = true;
  for (const Token& token : sqlTokens(text)) {
    if (token.kind == TokenKind::End) break;
    if (token.isSymbol(";")) {
      first = true;
      continue;
    }
    const auto isThis = [&](std::string_view word) { return token.isWord(word); };
    if (std::exchange(first, false) && std::none_of(kPlain.begin(), kPlain.end(), isThis)) {
      return false;
    }
    // What a connection keeps: variables, and locks.
    if (token.kind == TokenKind::Parameter && token.text != "?") return false;
    if (token.isWord("GET_LOCK") || token.isWord("LOCK")) return false;
  }
  return true;
}

}  // namespace quorvane::ado
