#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

/// Drivers as the driver manager gives them, without any value of a script: calls into a driver are
/// made on a thread of their own (see worker.h), where scripts' values must not be touched.
namespace quorvane::ado {

struct OdbcMoment {
  std::int32_t year = 0;
  std::int32_t month = 0;
  std::int32_t day = 0;
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
  std::uint32_t nanosecond = 0;
  bool timeAlone = false;  ///< of no day

  friend bool operator==(const OdbcMoment&, const OdbcMoment&) = default;
};

struct OdbcDecimal {
  std::string text;  ///< sign, digits, point
  std::int32_t digits = 0;
  std::int32_t scale = 0;

  friend bool operator==(const OdbcDecimal&, const OdbcDecimal&) = default;
};

/// What a driver takes and gives: Null, a truth, a number, a text, bytes, a moment.
using OdbcCell = std::variant<std::monostate, bool, std::int64_t, double, OdbcDecimal,
                              std::u16string, std::string, OdbcMoment>;

/// As the driver describes it; the numbers of types are those of the interface's standard.
struct OdbcColumn {
  std::u16string name;
  std::int32_t type = 0;
  std::uint64_t size = 0;
  std::int32_t digits = 0;  ///< behind the point
  bool nullable = true;
  bool isUnsigned = false;
  bool isMoney = false;  ///< a fixed scale
  bool autonumber = false;
  std::u16string typeName;
  std::u16string schema;  ///< of the table; or the catalogue's name where schemas are none
  std::u16string table;   ///< empty for expressions, and when nobody asked
  std::u16string column;
};

struct OdbcRecord {
  std::u16string state;
  std::int32_t native = 0;
  std::u16string text;
};

/// What a call has failed with; one record at least.
struct OdbcFailure {
  std::vector<OdbcRecord> records;
};

enum class OdbcList : std::uint8_t {
  Tables,
  Columns,
  PrimaryKeys,
  ForeignKeys,
  Indexes,
  Procedures
};

/// One statement at a driver. Everything throws OdbcFailure.
class OdbcStatement {
 public:
  virtual ~OdbcStatement() = default;
  virtual void execute(const std::u16string& text, const std::vector<OdbcCell>& parameters) = 0;
  /// The driver's catalogue; of all tables with an empty name, where that can be asked.
  virtual void list(OdbcList what, const std::u16string& schema, const std::u16string& table) = 0;
  /// Of the result at hand; none when it has no rows. `origins`: with the tables they come from.
  virtual std::vector<OdbcColumn> columns(bool origins) = 0;
  virtual std::int64_t affected() = 0;
  /// The next row; false behind the last. HY001 for a value that is larger than `most` bytes.
  virtual bool fetch(std::vector<OdbcCell>& row, std::size_t most) = 0;
  virtual bool nextResult() = 0;
};

struct OdbcNature {
  std::u16string system;  ///< the server's name for itself
  std::u16string version;
  std::u16string quote;       ///< around names; empty when there is none
  bool oneStatement = false;  ///< while rows are to come, no other statement can be sent
};

/// One connection. All calls come from one thread, but for cancel(). Everything throws OdbcFailure.
class OdbcSession {
 public:
  virtual ~OdbcSession() = default;
  virtual void connect(const std::u16string& text, std::int32_t seconds) = 0;
  virtual OdbcNature nature() = 0;
  virtual std::unique_ptr<OdbcStatement> statement() = 0;
  virtual void begin() = 0;
  virtual void end(bool commit) = 0;  ///< of what begin() began
  /// Asks the server to give up what it is doing, from any thread. May itself take long.
  virtual void cancel() noexcept = 0;
};

/// A session of the system's driver manager, not connected.
std::unique_ptr<OdbcSession> makeOdbcSession();
/// The names of the drivers that are installed.
std::vector<std::u16string> odbcDrivers();

}  // namespace quorvane::ado
