#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "components/ado/driver.h"
#include "components/ado/odbc/statements.h"
#include "components/ado/odbc/worker.h"

namespace quorvane::ado {

/// Throws the failure as scripts see it.
[[noreturn]] void throwFailure(const OdbcFailure& failure);

/// Rows and what is said of them, as they came from the connection's thread.
struct OdbcTaken {
  bool any = true;                  ///< there was a result
  std::vector<OdbcColumn> columns;  ///< none when it has no rows
  std::int64_t affected = -1;
  std::vector<std::vector<OdbcCell>> rows;
  bool more = false;  ///< rows are still to come
};

/// A table by its place and name.
struct OdbcTable {
  std::string schema;  ///< may be empty
  std::string name;
};

/// A connection of the driver manager with all that lives as long as its last statement.
class OdbcCore {
 public:
  /// Connects. Throws DatabaseError.
  OdbcCore(std::shared_ptr<OdbcSession> session, const std::string& text, std::int32_t seconds);
  ~OdbcCore();
  OdbcCore(const OdbcCore&) = delete;
  OdbcCore& operator=(const OdbcCore&) = delete;

  const OdbcNature& nature() const { return nature_; }
  const OdbcDialect& dialect() const { return dialect_; }
  void limitCommands(std::int32_t seconds) { seconds_ = seconds; }

  using Statement = std::shared_ptr<OdbcStatement>;

  /// What `work` gives, done on the connection's thread. Throws DatabaseError.
  template <class Work>
  auto call(Work work, std::int32_t seconds = -1) {
    try {
      return worker_.call(std::move(work), limit(seconds));
    } catch (const OdbcFailure& failure) {
      throwFailure(failure);
    }
  }

  /// Runs SQL and gives the statement with its first result. `seconds` as in Command.
  std::pair<Statement, OdbcTaken> execute(const std::string& text, std::vector<OdbcCell> parameters,
                                          bool origins, std::int32_t seconds = -1);
  OdbcTaken takeNext(const Statement& statement, bool origins);  ///< the one behind
  OdbcTaken takeMore(const Statement& statement);                ///< rows of the one at hand
  void release(Statement statement);
  OdbcTaken list(OdbcList what, const OdbcTable& table);

  /// The columns of a table's primary key, in their order; none when it has none.
  const std::vector<std::string>& keysOf(const OdbcTable& table);
  /// As SQL spells a table that a result came from.
  std::string spelled(const std::string& table) const;
  OdbcTable known(const std::string& table) const;

  void begin();
  void end(bool commit);

  /// As Database has them.
  bool rest() noexcept;
  bool wake() noexcept;

 private:
  std::chrono::milliseconds limit(std::int32_t seconds) const;
  static OdbcTaken taken(OdbcStatement& statement, bool origins, std::size_t most, bool all);
  static void takeRows(OdbcStatement& statement, OdbcTaken& taken, std::size_t most, bool all);

  OdbcWorker worker_;
  OdbcNature nature_;
  OdbcDialect dialect_;
  std::int32_t seconds_ = 30;
  bool inTransaction_ = false;
  bool hasTraces_ = false;                                ///< of a script, which stay
  std::map<std::string, OdbcTable> tables_;               ///< by lower-case name
  std::map<std::string, std::vector<std::string>> keys_;  ///< by schema and name
};

}  // namespace quorvane::ado
