#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/odbc/session.h"

namespace quorvane::ado {

enum class OdbcServer : std::uint8_t { Other, PostgreSql, MySql, SqlServer };

/// What differs in the SQL of servers, where the driver sends some of its own.
class OdbcDialect {
 public:
  OdbcDialect() = default;
  explicit OdbcDialect(const OdbcNature& nature);

  OdbcServer server() const { return server_; }
  std::string quoted(std::string_view name) const;
  /// `table` is spelled as SQL has it, here and below.
  std::string insertion(const std::string& table, const std::vector<std::string>& columns) const;
  std::string update(const std::string& table, const std::vector<std::string>& columns,
                     const std::vector<std::string>& keys) const;
  std::string deletion(const std::string& table, const std::vector<std::string>& keys) const;
  std::string selection(const std::string& table, const std::vector<std::string>& columns,
                        const std::vector<std::string>& keys) const;
  /// To stand behind an insertion that is to give the new row's key; empty where that is not to be
  /// had, and newest() is asked instead.
  std::string returning(const std::vector<std::string>& keys) const;
  /// The number that the last insertion has made; empty where nobody knows.
  std::string newest() const;
  /// A script's SQL with what servers call differently: @@IDENTITY and SCOPE_IDENTITY().
  std::string spelled(const std::string& text) const;
  /// What leaves a connection as it was when it was new; empty where nothing does.
  std::string resetting() const;
  /// A connection that has run this is as it was before, but for the data. Only of servers of which
  /// that can be told.
  bool leavesNoTraces(const std::string& text) const;

 private:
  std::string list(const std::vector<std::string>& names) const;
  std::string where(const std::vector<std::string>& keys) const;

  OdbcServer server_ = OdbcServer::Other;
  std::string quote_;
};

}  // namespace quorvane::ado
