#include "components/ado/odbc/core.h"

#include <algorithm>

#include "components/ado/odbc/values.h"
#include "support/text.h"
#include "vbscript/values/error.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::ado {

namespace {

constexpr std::size_t kBatchRows = 500;
constexpr std::size_t kBatchBytes = 256 << 10;
constexpr std::int32_t kPatience = 2;  ///< seconds for what should take none

/// How much the script may still hold.
std::size_t roomLeft() {
  constexpr std::int64_t kMost = 1'000'000'000;
  const auto& memory = vbs::runContext.memory;
  const std::int64_t left = memory.limit == INT64_MAX ? kMost : memory.limit - memory.used;
  return static_cast<std::size_t>(std::clamp<std::int64_t>(left, 0, kMost));
}

std::size_t sizeOf(const std::vector<OdbcCell>& row) {
  std::size_t bytes = row.size() * sizeof(OdbcCell);
  for (const OdbcCell& cell : row) {
    if (const auto* text = std::get_if<std::u16string>(&cell)) bytes += text->size() * 2;
    if (const auto* held = std::get_if<std::string>(&cell)) bytes += held->size();
  }
  return bytes;
}

}  // namespace

void throwFailure(const OdbcFailure& failure) {
  if (failure.records.front().state == u"HY001") vbs::throwError(vbs::ErrorCode::OutOfMemory);
  throw errorOf(failure);
}

OdbcCore::OdbcCore(std::shared_ptr<OdbcSession> session, const std::string& text,
                   std::int32_t seconds) try
    : worker_(std::move(session)) {
  // The driver's own limit should come first, for it says more.
  constexpr std::int32_t kMore = 1;
  nature_ = worker_.call(
      [text = wideOf(text), seconds](OdbcSession& s) {
        s.connect(text, seconds);
        return s.nature();
      },
      std::chrono::seconds(seconds > 0 ? seconds + kMore : 0));
  dialect_ = OdbcDialect(nature_);
} catch (const OdbcFailure& failure) {
  throwFailure(failure);
}

OdbcCore::~OdbcCore() {
  if (inTransaction_) {
    worker_.post([](OdbcSession& session) {
      try {
        session.end(false);
      } catch (const OdbcFailure&) {  // it ends with the connection
      }
    });
  }
}

std::chrono::milliseconds OdbcCore::limit(std::int32_t seconds) const {
  return std::chrono::seconds(seconds < 0 ? seconds_ : seconds);
}

/// Reads a batch of rows, or `all` where no other statement can be sent before the last.
void OdbcCore::takeRows(OdbcStatement& statement, OdbcTaken& taken, std::size_t most, bool all) {
  std::size_t bytes = 0;
  while (all || (taken.rows.size() < kBatchRows && bytes < kBatchBytes)) {
    std::vector<OdbcCell> row;
    if (!statement.fetch(row, most)) {
      taken.more = false;
      return;
    }
    bytes += sizeOf(row);
    if (bytes > most) throw OdbcFailure{{{u"HY001", 0, u"Memory allocation error"}}};
    taken.rows.push_back(std::move(row));
  }
  taken.more = true;
}

OdbcTaken OdbcCore::taken(OdbcStatement& statement, bool origins, std::size_t most, bool all) {
  OdbcTaken taken;
  taken.columns = statement.columns(origins);
  if (taken.columns.empty()) {
    taken.affected = statement.affected();
  } else {
    takeRows(statement, taken, most, all);
  }
  return taken;
}

std::pair<OdbcCore::Statement, OdbcTaken> OdbcCore::execute(const std::string& text,
                                                            std::vector<OdbcCell> parameters,
                                                            bool origins, std::int32_t seconds) {
  if (!hasTraces_ && !dialect_.leavesNoTraces(text)) hasTraces_ = true;
  return call(
      [text = wideOf(dialect_.spelled(text)), parameters = std::move(parameters), origins,
       most = roomLeft(), all = nature_.oneStatement](OdbcSession& session) {
        Statement statement = session.statement();
        statement->execute(text, parameters);
        OdbcTaken first = taken(*statement, origins, most, all);
        return std::pair(std::move(statement), std::move(first));
      },
      seconds);
}

OdbcTaken OdbcCore::takeNext(const Statement& statement, bool origins) {
  return call([statement, origins, most = roomLeft(), all = nature_.oneStatement](OdbcSession&) {
    OdbcTaken next;
    next.any = statement->nextResult();
    return next.any ? taken(*statement, origins, most, all) : next;
  });
}

OdbcTaken OdbcCore::takeMore(const Statement& statement) {
  return call([statement, most = roomLeft()](OdbcSession&) {
    OdbcTaken more;
    takeRows(*statement, more, most, false);
    return more;
  });
}

void OdbcCore::release(Statement statement) {
  if (statement) worker_.post([statement = std::move(statement)](OdbcSession&) {});
}

OdbcTaken OdbcCore::list(OdbcList what, const OdbcTable& table) {
  return call([what, schema = wideOf(table.schema), name = wideOf(table.name),
               most = roomLeft()](OdbcSession& session) {
    const auto statement = session.statement();
    statement->list(what, schema, name);
    return taken(*statement, false, most, true);
  });
}

const std::vector<std::string>& OdbcCore::keysOf(const OdbcTable& table) {
  tables_[lowerCase(table.name)] = table;
  const auto [place, isNew] = keys_.try_emplace(table.schema + "." + table.name);
  if (!isNew) return place->second;
  constexpr std::size_t kColumnName = 3;
  for (const auto& row : list(OdbcList::PrimaryKeys, table).rows) {
    const auto* name = std::get_if<std::u16string>(&row[kColumnName]);
    if (name) place->second.push_back(utf8Of(*name));
  }
  return place->second;
}

OdbcTable OdbcCore::known(const std::string& table) const {
  const auto found = tables_.find(lowerCase(table));
  return found == tables_.end() ? OdbcTable{"", table} : found->second;
}

std::string OdbcCore::spelled(const std::string& table) const {
  const OdbcTable found = known(table);
  const std::string name = dialect_.quoted(found.name);
  return found.schema.empty() ? name : dialect_.quoted(found.schema) + "." + name;
}

bool OdbcCore::rest() noexcept {
  if (worker_.lost() || hasTraces_) return false;
  try {
    if (inTransaction_) end(false);
    if (!dialect_.resetting().empty()) {
      release(execute(dialect_.resetting(), {}, false, kPatience).first);
    }
    keys_.clear();
    return true;
  } catch (...) {  // whatever it is, the connection is not as it was
    return false;
  }
}

bool OdbcCore::wake() noexcept {
  try {
    release(execute("SELECT 1", {}, false, kPatience).first);
    return true;
  } catch (...) {  // the server has gone, or forgotten the connection
    return false;
  }
}

void OdbcCore::begin() {
  call([](OdbcSession& session) {
    session.begin();
    return true;
  });
  inTransaction_ = true;
}

void OdbcCore::end(bool commit) {
  call([commit](OdbcSession& session) {
    session.end(commit);
    return true;
  });
  inTransaction_ = false;
}

}  // namespace quorvane::ado
