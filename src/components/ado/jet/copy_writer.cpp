#include "components/ado/jet/copy_writer.h"

#include <algorithm>

#include "components/ado/jet/column_values.h"
#include "components/ado/jet/saved_queries.h"
#include "components/ado/sql/translator.h"
#include "platform/charset.h"
#include "support/status_lines.h"
#include "support/text.h"
#include "support/visible_text.h"

namespace quorvane::ado::jet {

using vbs::Value;

namespace {

constexpr std::uint32_t kUsualCodePage = 1252;

/// A name as Jet's SQL takes it whatever it says; it can't hold a closing bracket itself.
std::string bracketed(const std::string& name) {
  return "[" + replaceAll(name, "]", ")") + "]";
}

std::string bracketedList(const JetTable& table, const JetIndex& index) {
  std::string list;
  for (const JetIndex::Part& part : index.parts) {
    list += (list.empty() ? "(" : ", ") + bracketed(table.columns[part.column].name);
    if (part.descending) list += " DESC";
  }
  return list + ")";
}

bool isAutonumber(const JetTable& table, const JetIndex& index) {
  return index.parts.size() == 1 && table.columns[index.parts[0].column].autonumber;
}

const JetColumn* columnOf(const JetTable& table, std::string_view name) {
  const auto found = std::find_if(table.columns.begin(), table.columns.end(),
                                  [&](const JetColumn& c) { return equalsNoCase(c.name, name); });
  return found == table.columns.end() ? nullptr : &*found;
}

bool isCodePageKnown(std::uint32_t page) {
  return page != 0 && charset::isKnown("cp" + std::to_string(page));
}

std::string counted(std::uint64_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

CopyWriter::CopyWriter(SqliteCore& core, StatusLines& log, Options options)
    : core_(core), log_(log), options_(std::move(options)) {
  constexpr std::uint64_t kPage = 4096;
  core_.run("PRAGMA foreign_keys = OFF");  // rows come in any order
  core_.run("PRAGMA journal_mode = MEMORY");
  core_.run("PRAGMA max_page_count = " + std::to_string(options_.mostBytes / kPage + 1));
  core_.run("BEGIN");
}

void CopyWriter::note(const std::string& text) {
  log_.LogLine(options_.title + visible(text));
}

void CopyWriter::tables(JetFile file) {
  file_ = std::move(file);
  states_.resize(file_.tables.size());
  if (file_.isOld) {
    std::uint32_t page = options_.codePage != 0 ? options_.codePage : file_.codePage;
    if (!isCodePageKnown(page)) page = kUsualCodePage;
    charset_ = "cp" + std::to_string(page);
  }
  for (const JetTable& table : file_.tables) names_.insert(lowerCase(table.name));
}

/// Jet's SQL, as scripts would write it.
void CopyWriter::define(const std::string& text) {
  const Translation translation = translateSql(text);
  if (translation.refused()) throw ImportFailed{translation.refusal};
  for (const SqlStatement& statement : translation.statements) core_.run(statement.text);
}

bool CopyWriter::tryDefining(const std::string& text) {
  try {
    define(text);
    return true;
  } catch (const ImportFailed&) {
    return false;
  } catch (const DatabaseError&) {
    return false;
  }
}

/// An expression that the copy's engine does not know is left out.
std::string CopyWriter::defaultText(const JetColumn& column, const std::string& type) {
  if (column.newGuid) return " DEFAULT NEWID()";
  const bool isFlag = column.type == ColumnType::Boolean;  // never Null where it comes from
  std::string value(trimBlanks(column.defaultValue));
  if (value.starts_with('=')) value = std::string(trimBlanks(std::string_view(value).substr(1)));
  if (isFlag && (equalsNoCase(value, "yes") || equalsNoCase(value, "on"))) value = "True";
  if (isFlag && (value.empty() || equalsNoCase(value, "no") || equalsNoCase(value, "off"))) {
    value = "False";
  }
  if (value.empty()) return {};
  std::string text = " DEFAULT " + value;
  if (tryDefining("CREATE TABLE [import default] (a " + type + text + ")")) {
    core_.run("DROP TABLE \"import default\"");
    return text;
  }
  note("the default value of the column " + column.name + " is left out");
  return isFlag ? " DEFAULT False" : "";
}

std::string CopyWriter::columnText(const JetTable& table, const JetColumn& column) {
  std::string text = bracketed(column.name) + " ";
  if (column.autonumber) {
    const bool goesOn = table.lastNumber > 0 && table.lastNumber < INT32_MAX;
    return text + "COUNTER" +
           (goesOn ? "(" + std::to_string(table.lastNumber + 1) + ", 1)" : std::string());
  }
  const std::string type = declaredTypeOf(column, file_.isOld);
  return text + type + defaultText(column, type);
}

std::string CopyWriter::keyText(const JetTable& table) const {
  for (const JetIndex& index : table.indexes) {
    if (!index.primary || isAutonumber(table, index)) continue;
    return ", CONSTRAINT " + bracketed(index.name) + " PRIMARY KEY " + bracketedList(table, index);
  }
  return {};
}

std::string CopyWriter::relationTexts(const JetTable& table) const {
  constexpr std::uint32_t kCascadeUpdates = 0x100;
  constexpr std::uint32_t kCascadeDeletes = 0x1000;
  std::string text;
  for (const Relation& relation : relations_) {
    if (!equalsNoCase(relation.table, table.name) || !isKept(relation)) continue;
    std::string own;
    std::string others;
    for (const auto& [column, other] : relation.columns) {
      const char* const between = own.empty() ? "" : ", ";
      own += between + bracketed(column);
      others += between + bracketed(other);
    }
    text += ", CONSTRAINT " + bracketed(relation.name) + " FOREIGN KEY (" + own + ")";
    text += " REFERENCES " + bracketed(relation.other) + " (" + others + ")";
    if (relation.flags & kCascadeUpdates) text += " ON UPDATE CASCADE";
    if (relation.flags & kCascadeDeletes) text += " ON DELETE CASCADE";
  }
  return text;
}

const JetTable* CopyWriter::tableOf(std::string_view name) const {
  for (const JetTable& table : file_.tables) {
    if (!table.isSystem && equalsNoCase(table.name, name)) return &table;
  }
  return nullptr;
}

/// What the relation refers to must be a key, or nothing could be written to its table any more.
bool CopyWriter::isKept(const Relation& relation) const {
  constexpr std::uint32_t kNotEnforced = 2;
  const JetTable* own = tableOf(relation.table);
  const JetTable* other = tableOf(relation.other);
  if (!own || !other || (relation.flags & kNotEnforced) != 0) return false;
  for (const auto& [column, otherColumn] : relation.columns) {
    if (!columnOf(*own, column) || !columnOf(*other, otherColumn)) return false;
  }
  if (relation.columns.size() == 1 && columnOf(*other, relation.columns[0].second)->autonumber) {
    return true;
  }
  return std::any_of(other->indexes.begin(), other->indexes.end(), [&](const JetIndex& index) {
    if (!(index.primary || index.unique) || index.parts.size() != relation.columns.size()) {
      return false;
    }
    return std::all_of(index.parts.begin(), index.parts.end(), [&](const JetIndex::Part& part) {
      const std::string& name = other->columns[part.column].name;
      return std::any_of(relation.columns.begin(), relation.columns.end(),
                         [&](const auto& pair) { return equalsNoCase(pair.second, name); });
    });
  });
}

void CopyWriter::makeTable(const JetTable& table, State& state) {
  std::string columns;
  for (const JetColumn& column : table.columns) {
    if (!columns.empty()) columns += ", ";
    columns += columnText(table, column);
  }
  const std::string head = "CREATE TABLE " + bracketed(table.name) + " (" + columns;
  const std::string key = keyText(table);
  state.made =
      tryDefining(head + key + relationTexts(table) + ")") || tryDefining(head + key + ")");
  if (!state.made) note("the table " + table.name + " can't be made and is left out");
}

void CopyWriter::makeTables() {
  for (std::size_t i = 0; i < file_.tables.size(); ++i) {
    if (!file_.tables[i].isSystem && !states_[i].made) makeTable(file_.tables[i], states_[i]);
  }
}

void CopyWriter::beginRows(std::size_t number) {
  endRows();
  current_ = &file_.tables[number];
  state_ = &states_[number];
  if (current_->isSystem) return;
  if (std::none_of(states_.begin(), states_.end(), [](const State& s) { return s.made; })) {
    makeTables();
  }
  if (!state_->made) return;
  std::string places;
  for (std::size_t i = 1; i <= current_->columns.size(); ++i) {
    places += (i == 1 ? "?" : ", ?") + std::to_string(i);
  }
  const std::string name = replaceAll(current_->name, "]", ")");
  insertion_ =
      SqliteStatement(core_, "INSERT INTO " + quotedName(name) + " VALUES (" + places + ")");
}

void CopyWriter::row(const JetRow& row) {
  if (current_->isSystem) {
    return current_->name == kRelationsTable ? addRelation(row) : addQueryPart(row);
  }
  if (!state_->made) return;
  sqlite3_reset(insertion_.get());
  for (std::size_t i = 0; i < row.size(); ++i) {
    const JetColumn& column = current_->columns[i];
    Value value = row[i] ? valueOfBytes(column, *row[i], charset_) : Value::null();
    if (row[i] && value.isEmpty()) ++state_->damaged;
    insertion_.bind(static_cast<int>(i + 1), value);
  }
  try {
    insertion_.step();
    ++state_->rows;
  } catch (const DatabaseError&) {
    const int code = sqlite3_errcode(core_.handle()) & 0xFF;
    if (code != SQLITE_CONSTRAINT && code != SQLITE_MISMATCH) throw;
    ++state_->leftOut;
  }
}

Value CopyWriter::systemValue(const JetRow& row, const char* name) const {
  const JetColumn* column = columnOf(*current_, name);
  if (!column) return {};
  const auto& bytes = row[static_cast<std::size_t>(column - current_->columns.data())];
  return bytes ? valueOfBytes(*column, *bytes, charset_) : Value();
}

std::string CopyWriter::systemText(const JetRow& row, const char* name) const {
  const Value value = systemValue(row, name);
  return value.isString() ? value.asString().utf8() : std::string();
}

std::uint32_t CopyWriter::systemNumber(const JetRow& row, const char* name) const {
  const Value value = systemValue(row, name);
  switch (value.type()) {
    case vbs::Type::Byte:
    case vbs::Type::Integer:
    case vbs::Type::Long:
      return static_cast<std::uint32_t>(value.asInt());
    default:
      return 0;
  }
}

void CopyWriter::addRelation(const JetRow& row) {
  const std::string name = systemText(row, "szRelationship");
  auto relation = std::find_if(relations_.begin(), relations_.end(),
                               [&](const Relation& r) { return r.name == name; });
  if (relation == relations_.end()) {
    relations_.push_back({name,
                          systemText(row, "szObject"),
                          systemText(row, "szReferencedObject"),
                          systemNumber(row, "grbit"),
                          {}});
    relation = relations_.end() - 1;
  }
  relation->columns.emplace_back(systemText(row, "szColumn"),
                                 systemText(row, "szReferencedColumn"));
}

void CopyWriter::addQueryPart(const JetRow& row) {
  const std::uint32_t id = systemNumber(row, "ObjectId");
  const auto query = std::find_if(file_.queries.begin(), file_.queries.end(),
                                  [&](const SavedQuery& one) { return one.id == id; });
  if (query == file_.queries.end()) return;
  QueryPart part{static_cast<int>(systemNumber(row, "Attribute")),
                 static_cast<int>(systemNumber(row, "Flag")), systemText(row, "Expression"),
                 systemText(row, "Name1"), systemText(row, "Name2")};
  queryBytes_.change(queryBytes_.bytes() + sizeof part + part.expression.size() + part.name.size() +
                     part.other.size());
  query->parts.push_back(std::move(part));
}

void CopyWriter::endRows() {
  insertion_ = SqliteStatement();
  if (!state_ || !state_->made) return;
  note("table " + current_->name + ", " + counted(state_->rows, "row", "rows"));
  if (state_->leftOut > 0) {
    note(counted(state_->leftOut, "row", "rows") + " of the table " + current_->name +
         " have a key that is there already and are left out");
  }
  if (state_->damaged > 0) {
    note(counted(state_->damaged, "value", "values") + " of the table " + current_->name +
         " make no sense and are left out");
  }
}

/// Names of indexes are the whole database's here, and a table's there.
std::string CopyWriter::freeName(const std::string& wanted, const std::string& table) {
  std::string name = wanted;
  if (names_.insert(lowerCase(name)).second) return name;
  const std::string longer = table + "_" + wanted;
  name = longer;
  for (int i = 2; !names_.insert(lowerCase(name)).second; ++i) {
    name = longer;
    name += std::to_string(i);
  }
  return name;
}

bool CopyWriter::makeIndex(const JetTable& table, const std::string& name,
                           const std::string& columns, bool unique) {
  return tryDefining(std::string(unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                     bracketed(name) + " ON " + bracketed(table.name) + " " + columns);
}

void CopyWriter::makeIndexes(const JetTable& table) {
  for (const JetIndex& index : table.indexes) {
    if (index.primary || isAutonumber(table, index)) continue;
    const std::string name = freeName(index.name, table.name);
    const std::string columns = bracketedList(table, index);
    if (makeIndex(table, name, columns, index.unique)) continue;
    const bool made = index.unique && makeIndex(table, name, columns, false);
    note("the index " + index.name + " of the table " + table.name +
         (made ? " has equal values and is not unique" : " is left out"));
  }
  // What refers to another table is looked for whenever a row of that one goes.
  for (const Relation& relation : relations_) {
    if (!equalsNoCase(relation.table, table.name) || !isKept(relation)) continue;
    const std::string& first = relation.columns[0].first;
    const bool hasIndex =
        std::any_of(table.indexes.begin(), table.indexes.end(), [&](const JetIndex& index) {
          return equalsNoCase(table.columns[index.parts[0].column].name, first);
        });
    if (!hasIndex) {
      makeIndex(table, freeName(relation.name, table.name), "(" + bracketed(first) + ")", false);
    }
  }
}

/// Those that can't be, because of what they call or ask for, are left out, and then those that
/// stand on them.
void CopyWriter::makeViews() {
  std::vector<std::string> views;
  for (const SavedQuery& query : file_.queries) {
    const auto text = selectText(query);
    const bool isFree = text && names_.insert(lowerCase(query.name)).second;
    if (isFree && tryDefining("CREATE VIEW " + bracketed(query.name) + " AS " + *text)) {
      views.push_back(query.name);
    } else {
      note("the query " + query.name + " is left out");
    }
  }
  const auto isUsable = [&](const std::string& view) {
    try {
      const SqliteStatement all(core_, "SELECT * FROM " + quotedName(replaceAll(view, "]", ")")));
      return true;
    } catch (const DatabaseError&) {
      return false;
    }
  };
  for (bool goesOn = true; goesOn;) {
    goesOn = std::erase_if(views, [&](const std::string& view) {
               if (isUsable(view)) return false;
               core_.run("DROP VIEW " + quotedName(replaceAll(view, "]", ")")));
               note("the query " + view + " is left out");
               return true;
             }) > 0;
  }
}

CopySize CopyWriter::finish(std::uint32_t stamp) {
  endRows();
  makeTables();
  CopySize size;
  for (std::size_t i = 0; i < states_.size(); ++i) {
    if (!states_[i].made) continue;
    makeIndexes(file_.tables[i]);
    ++size.tables;
    size.rows += states_[i].rows;
  }
  makeViews();
  core_.run("PRAGMA application_id = " + std::to_string(kMark));
  core_.run("PRAGMA user_version = " + std::to_string(static_cast<std::int32_t>(stamp)));
  core_.run("COMMIT");
  return size;
}

}  // namespace quorvane::ado::jet
