#include "components/ado/catalog_objects.h"

#include "components/ado/sql/translator.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::int32_t kMayBeNull = 2;

void run(const vbs::Ref<Connection>& connection, const std::string& text) {
  Command command;
  command.text = text;
  connection->guarded([&](Database& database) { database.execute(command); });
}

std::string bracketed(const std::string& name) {
  return "[" + name + "]";
}

std::string typeText(DataType type, std::int32_t size, std::int32_t precision, std::int32_t scale) {
  const std::string length = "(" + std::to_string(size > 0 ? size : 255) + ")";
  switch (type) {
    case DataType::SmallInt:
      return "SHORT";
    case DataType::Integer:
      return "LONG";
    case DataType::Single:
      return "SINGLE";
    case DataType::Double:
      return "DOUBLE";
    case DataType::Currency:
      return "CURRENCY";
    case DataType::Date:
    case DataType::DbDate:
    case DataType::DbTimeStamp:
      return "DATETIME";
    case DataType::Boolean:
      return "YESNO";
    case DataType::UnsignedTinyInt:
      return "BYTE";
    case DataType::BigInt:
      return "BIGINT";
    case DataType::Guid:
      return "GUID";
    case DataType::Numeric:
    case DataType::Decimal:
      return "DECIMAL(" + std::to_string(precision) + "," + std::to_string(scale) + ")";
    case DataType::LongVarWChar:
    case DataType::LongVarChar:
      return "MEMO";
    case DataType::LongVarBinary:
      return "LONGBINARY";
    case DataType::Binary:
    case DataType::VarBinary:
      return "VARBINARY" + length;
    default:
      return "VARCHAR" + length;
  }
}

}  // namespace

template <class Item>
std::size_t CatalogItems<Item>::placeOf(const Value& key) const {
  const std::size_t place = items_.placeOf(key);
  if (place == items_.size()) {
    throwAdo(AdoError::ItemNotFound, "ADOX." + std::string(typeName()));
  }
  return place;
}

template <class Item>
Value CatalogItems<Item>::getItem(Args args) {
  return Value::object(items_.all()[placeOf(args[0])].get());
}

template <class Item>
void CatalogItems<Item>::add(vbs::Ref<Item> item, const std::string& statement) {
  if (connection_) run(connection_, statement);
  items_.all().push_back(std::move(item));
}

template <class Item>
void CatalogItems<Item>::removeAt(std::size_t place, const std::string& statement) {
  if (connection_) run(connection_, statement);
  items_.all().erase(items_.all().begin() + static_cast<std::ptrdiff_t>(place));
}

std::span<const vbs::Member<CatalogColumn>> CatalogColumn::members() {
  using Self = CatalogColumn;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"name", 0, 0, &Self::getName, &Self::putName, true},
      {"type", 0, 0, &Self::getType, &Self::putType},
      {"definedsize", 0, 0, &Self::getSize, &Self::putSize},
      {"attributes", 0, 0, &Self::getAttributes, &Self::putAttributes},
      {"precision", 0, 0, &Self::getPrecision, &Self::putPrecision},
      {"numericscale", 0, 0, &Self::getScale, &Self::putScale},
      {"properties", 0, 0, &Self::getProperties},
      {"parentcatalog", 0, 0, &Self::getParent, &Self::putParent},
  };
  return kMembers;
}

void CatalogColumn::describe(std::string name, DataType type, std::int32_t size) {
  name_ = std::move(name);
  type_ = type;
  size_ = size;
}

void CatalogColumn::putType(Args args, CallKind) {
  type_ = static_cast<DataType>(vbs::toLong(args[0]));
}

std::string CatalogColumn::definition() const {
  const Value counts = properties_->value("AutoIncrement");
  if (!counts.isEmpty() && vbs::toBoolean(counts)) return bracketed(name_) + " COUNTER";
  std::string text = bracketed(name_) + " " + typeText(type_, size_, precision_, scale_);
  const Value nullable = properties_->value("Nullable");
  const bool required = !nullable.isEmpty() && !vbs::toBoolean(nullable);
  if (required && (attributes_ & kMayBeNull) == 0) text += " NOT NULL";
  const Value otherwise = properties_->value("Default");
  if (!otherwise.isEmpty()) text += " DEFAULT " + utf8Of(otherwise);
  return text;
}

std::span<const vbs::Member<CatalogColumns>> CatalogColumns::members() {
  using Self = CatalogColumns;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, nullptr, true}, {"count", 0, 0, &Self::getCount},
      {"append", 1, 3, &Self::callAppend},           {"delete", 1, 1, &Self::callDelete},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

/// A Column, or name, type and size.
Value CatalogColumns::callAppend(Args args) {
  vbs::Ref<CatalogColumn> column(objectOf<CatalogColumn>(args[0]));
  if (!column) {
    column = vbs::make<CatalogColumn>();
    column->describe(utf8Of(args[0]),
                     static_cast<DataType>(
                         arguments::number(args, 1, static_cast<std::int32_t>(DataType::VarWChar))),
                     arguments::number(args, 2, 0));
  }
  const std::string definition = column->definition();
  add(std::move(column), "ALTER TABLE " + bracketed(table_) + " ADD COLUMN " + definition);
  return {};
}

Value CatalogColumns::callDelete(Args args) {
  const std::size_t place = placeOf(args[0]);
  removeAt(place, "ALTER TABLE " + bracketed(table_) + " DROP COLUMN " +
                      bracketed(items_.all()[place]->name()));
  return {};
}

std::span<const vbs::Member<CatalogIndex>> CatalogIndex::members() {
  using Self = CatalogIndex;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"name", 0, 0, &Self::getName, &Self::putName, true},
      {"columns", 0, 0, &Self::getColumns},
      {"primarykey", 0, 0, &Self::getPrimary, &Self::putPrimary},
      {"unique", 0, 0, &Self::getUnique, &Self::putUnique},
      {"indexnulls", 0, 0, &Self::getNulls, &Self::putNulls},
  };
  return kMembers;
}

void CatalogIndex::describe(std::string name, bool primary, bool unique) {
  name_ = std::move(name);
  primary_ = primary;
  unique_ = unique;
}

std::string CatalogIndex::definition(const std::string& table) const {
  std::string columns;
  for (const auto& column : columns_->items().all()) {
    columns += (columns.empty() ? "" : ", ") + bracketed(column->name());
  }
  return std::string(primary_ || unique_ ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
         bracketed(name_) + " ON " + bracketed(table) + " (" + columns + ")";
}

std::span<const vbs::Member<CatalogIndexes>> CatalogIndexes::members() {
  using Self = CatalogIndexes;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, nullptr, true}, {"count", 0, 0, &Self::getCount},
      {"append", 1, 2, &Self::callAppend},           {"delete", 1, 1, &Self::callDelete},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

/// An Index, or a name and the columns: one name or an array.
Value CatalogIndexes::callAppend(Args args) {
  vbs::Ref<CatalogIndex> index(objectOf<CatalogIndex>(args[0]));
  if (!index) {
    if (!isGiven(args, 1)) throwAdo(AdoError::InvalidArgument, "ADOX.Indexes");
    index = vbs::make<CatalogIndex>();
    index->describe(utf8Of(args[0]), false, false);
    const Value& names = args[1].deref();
    const std::size_t count = names.isArray() ? names.asArray()->count : 1;
    for (std::size_t i = 0; i < count; ++i) {
      auto column = vbs::make<CatalogColumn>();
      column->describe(utf8Of(names.isArray() ? names.asArray()->element(i) : names),
                       DataType::VarWChar, 0);
      index->columns().items().all().push_back(std::move(column));
    }
  }
  const std::string definition = index->definition(table_);
  add(std::move(index), definition);
  return {};
}

Value CatalogIndexes::callDelete(Args args) {
  const std::size_t place = placeOf(args[0]);
  removeAt(place,
           "DROP INDEX " + bracketed(items_.all()[place]->name()) + " ON " + bracketed(table_));
  return {};
}

std::span<const vbs::Member<CatalogTable>> CatalogTable::members() {
  using Self = CatalogTable;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"name", 0, 0, &Self::getName, &Self::putName, true},
      {"type", 0, 0, &Self::getType},
      {"columns", 0, 1, &Self::getColumns},
      {"indexes", 0, 1, &Self::getIndexes},
      {"parentcatalog", 0, 0, &Self::getParent, &Self::putParent},
      {"datecreated", 0, 0, &Self::getDate},
      {"datemodified", 0, 0, &Self::getDate},
  };
  return kMembers;
}

void CatalogTable::describe(std::string name, std::string type) {
  name_ = std::move(name);
  type_ = std::move(type);
}

void CatalogTable::bind(const vbs::Ref<Connection>& connection) {
  connection_ = connection;
  columns_->bind(connection, name_);
  indexes_->bind(connection, name_);
}

void CatalogTable::create(const vbs::Ref<Connection>& connection) {
  std::string text = "CREATE TABLE " + bracketed(name_) + " (";
  bool first = true;
  for (const auto& column : columns_->items().all()) {
    text += (std::exchange(first, false) ? "" : ", ") + column->definition();
  }
  for (const auto& index : indexes_->items().all()) {
    if (!index->isPrimary()) continue;
    std::string columns;
    for (const auto& column : index->columns().items().all()) {
      columns += (columns.empty() ? "" : ", ") + bracketed(column->name());
    }
    text += ", CONSTRAINT " + bracketed(index->name()) + " PRIMARY KEY (" + columns + ")";
  }
  run(connection, text + ")");
  for (const auto& index : indexes_->items().all()) {
    if (!index->isPrimary()) run(connection, index->definition(name_));
  }
  bind(connection);
}

void CatalogTable::putName(Args args, CallKind) {
  const std::string name = utf8Of(args[0]);
  if (connection_) {
    run(connection_, "ALTER TABLE " + bracketed(name_) + " RENAME TO " + bracketed(name));
  }
  name_ = name;
  if (connection_) bind(connection_);
}

Value CatalogTable::getColumns(Args args) {
  const Value columns = Value::object(columns_.get());
  return args.empty() ? columns : vbs::invokeResult(columns, CallKind::Get, args);
}

Value CatalogTable::getIndexes(Args args) {
  const Value indexes = Value::object(indexes_.get());
  return args.empty() ? indexes : vbs::invokeResult(indexes, CallKind::Get, args);
}

std::span<const vbs::Member<CatalogTables>> CatalogTables::members() {
  using Self = CatalogTables;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, nullptr, true}, {"count", 0, 0, &Self::getCount},
      {"append", 1, 1, &Self::callAppend},           {"delete", 1, 1, &Self::callDelete},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

void CatalogTables::read() {
  items_.all().clear();
  const auto rowsOf = [&](SchemaKind kind) {
    return connection_->guarded([&](Database& database) { return database.schema(kind); }).rows;
  };
  for (const Row& row : rowsOf(SchemaKind::Tables)) {
    auto table = vbs::make<CatalogTable>();
    table->describe(utf8Of(row[2]), utf8Of(row[3]));
    items_.all().push_back(std::move(table));
  }
  for (const Row& row : rowsOf(SchemaKind::Columns)) {
    CatalogTable* table = items_.find(row[2]);
    if (!table) continue;
    auto column = vbs::make<CatalogColumn>();
    column->describe(utf8Of(row[3]), static_cast<DataType>(vbs::toLong(row[9])),
                     row[10].isNull() ? 0 : vbs::toLong(row[10]));
    table->columns().items().all().push_back(std::move(column));
  }
  for (const Row& row : rowsOf(SchemaKind::Indexes)) {
    CatalogTable* table = items_.find(row[2]);
    if (!table) continue;
    CatalogIndex* index = table->indexes().items().find(row[3]);
    if (!index) {
      auto fresh = vbs::make<CatalogIndex>();
      fresh->describe(utf8Of(row[3]), vbs::toBoolean(row[4]), vbs::toBoolean(row[5]));
      index = fresh.get();
      table->indexes().items().all().push_back(std::move(fresh));
    }
    auto column = vbs::make<CatalogColumn>();
    column->describe(utf8Of(row[8]), DataType::VarWChar, 0);
    index->columns().items().all().push_back(std::move(column));
  }
  for (const auto& table : items_.all()) table->bind(connection_);
}

Value CatalogTables::callAppend(Args args) {
  auto* table = objectOf<CatalogTable>(args[0]);
  if (!table) throwAdo(AdoError::InvalidArgument, "ADOX.Tables");
  table->create(connection_);
  items_.all().emplace_back(table);
  return {};
}

Value CatalogTables::callDelete(Args args) {
  const std::size_t place = placeOf(args[0]);
  removeAt(place, "DROP TABLE " + bracketed(items_.all()[place]->name()));
  return {};
}

Value CatalogTables::callRefresh(Args) {
  read();
  return {};
}

}  // namespace quorvane::ado
