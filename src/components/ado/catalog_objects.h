#pragma once

#include <string>
#include <string_view>

#include "components/ado/connection.h"
#include "components/ado/items.h"
#include "components/ado/property.h"

/// The objects of ADOX. Those that were made by a script describe what is to be; once appended to a
/// collection of a catalog they are made, and what is changed then is changed in the database.
namespace quorvane::ado {

/// ADOX.Column.
class CatalogColumn final : public vbs::NativeObject<CatalogColumn> {
 public:
  const std::string& name() const { return name_; }
  void describe(std::string name, DataType type, std::int32_t size);
  /// As CREATE TABLE has it.
  std::string definition() const;

  std::string_view typeName() const override { return "Column"; }
  static std::span<const vbs::Member<CatalogColumn>> members();

 private:
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  void putName(vbs::Args args, vbs::CallKind) { name_ = utf8Of(args[0]); }
  vbs::Value getType(vbs::Args) { return vbs::Value::longInt(static_cast<std::int32_t>(type_)); }
  void putType(vbs::Args args, vbs::CallKind);
  vbs::Value getSize(vbs::Args) { return vbs::Value::longInt(size_); }
  void putSize(vbs::Args args, vbs::CallKind) { size_ = vbs::toLong(args[0]); }
  vbs::Value getAttributes(vbs::Args) { return vbs::Value::longInt(attributes_); }
  void putAttributes(vbs::Args args, vbs::CallKind) { attributes_ = vbs::toLong(args[0]); }
  vbs::Value getPrecision(vbs::Args) { return vbs::Value::longInt(precision_); }
  void putPrecision(vbs::Args args, vbs::CallKind) { precision_ = vbs::toLong(args[0]); }
  vbs::Value getScale(vbs::Args) { return vbs::Value::longInt(scale_); }
  void putScale(vbs::Args args, vbs::CallKind) { scale_ = vbs::toLong(args[0]); }
  vbs::Value getProperties(vbs::Args) { return vbs::Value::object(properties_.get()); }
  vbs::Value getParent(vbs::Args) { return vbs::Value::nothing(); }
  void putParent(vbs::Args, vbs::CallKind) {}  ///< says which provider's properties it has

  std::string name_;
  DataType type_ = DataType::VarWChar;
  std::int32_t size_ = 0;
  std::int32_t attributes_ = 0;
  std::int32_t precision_ = 18;
  std::int32_t scale_ = 0;
  vbs::Ref<Properties> properties_ = vbs::make<Properties>();
};

class CatalogTable;

/// What the collections of tables, columns and indexes have in common.
template <class Item>
class CatalogItems : public vbs::Object {
 public:
  Items<Item>& items() { return items_; }
  /// Items that come and go from now on are those of the database, of a table if one is named.
  void bind(vbs::Ref<Connection> connection, std::string table) {
    connection_ = std::move(connection);
    table_ = std::move(table);
  }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return items_.walk(); }

 protected:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args) { return items_.count(); }
  vbs::Value callRefresh(vbs::Args) { return {}; }
  /// In the database and here.
  void add(vbs::Ref<Item> item, const std::string& statement);
  std::size_t placeOf(const vbs::Value& key) const;  ///< an error when there is none
  void removeAt(std::size_t place, const std::string& statement);

  Items<Item> items_;
  vbs::Ref<Connection> connection_;  ///< null: of no database yet
  std::string table_;
};

/// The columns of a table or of an index.
class CatalogColumns final : public vbs::NativeObject<CatalogColumns, CatalogItems<CatalogColumn>> {
 public:
  std::string_view typeName() const override { return "Columns"; }
  static std::span<const vbs::Member<CatalogColumns>> members();

 private:
  vbs::Value callAppend(vbs::Args args);
  vbs::Value callDelete(vbs::Args args);
};

/// ADOX.Index.
class CatalogIndex final : public vbs::NativeObject<CatalogIndex> {
 public:
  const std::string& name() const { return name_; }
  void describe(std::string name, bool primary, bool unique);
  CatalogColumns& columns() { return *columns_; }
  std::string definition(const std::string& table) const;
  bool isPrimary() const { return primary_; }

  std::string_view typeName() const override { return "Index"; }
  static std::span<const vbs::Member<CatalogIndex>> members();

 private:
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  void putName(vbs::Args args, vbs::CallKind) { name_ = utf8Of(args[0]); }
  vbs::Value getPrimary(vbs::Args) { return vbs::Value::boolean(primary_); }
  void putPrimary(vbs::Args args, vbs::CallKind) { primary_ = vbs::toBoolean(args[0]); }
  vbs::Value getUnique(vbs::Args) { return vbs::Value::boolean(unique_ || primary_); }
  void putUnique(vbs::Args args, vbs::CallKind) { unique_ = vbs::toBoolean(args[0]); }
  vbs::Value getNulls(vbs::Args) { return vbs::Value::longInt(nulls_); }
  void putNulls(vbs::Args args, vbs::CallKind) { nulls_ = vbs::toLong(args[0]); }
  vbs::Value getColumns(vbs::Args) { return vbs::Value::object(columns_.get()); }

  std::string name_;
  bool primary_ = false;
  bool unique_ = false;
  std::int32_t nulls_ = 0;
  vbs::Ref<CatalogColumns> columns_ = vbs::make<CatalogColumns>();
};

class CatalogIndexes final : public vbs::NativeObject<CatalogIndexes, CatalogItems<CatalogIndex>> {
 public:
  std::string_view typeName() const override { return "Indexes"; }
  static std::span<const vbs::Member<CatalogIndexes>> members();

 private:
  vbs::Value callAppend(vbs::Args args);
  vbs::Value callDelete(vbs::Args args);
};

/// ADOX.Table.
class CatalogTable final : public vbs::NativeObject<CatalogTable> {
 public:
  const std::string& name() const { return name_; }
  void describe(std::string name, std::string type);
  CatalogColumns& columns() { return *columns_; }
  CatalogIndexes& indexes() { return *indexes_; }
  /// Makes the table with its indexes.
  void create(const vbs::Ref<Connection>& connection);
  void bind(const vbs::Ref<Connection>& connection);

  std::string_view typeName() const override { return "Table"; }
  static std::span<const vbs::Member<CatalogTable>> members();

 private:
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  void putName(vbs::Args args, vbs::CallKind);
  vbs::Value getType(vbs::Args) { return textValue(type_); }
  vbs::Value getColumns(vbs::Args args);
  vbs::Value getIndexes(vbs::Args args);
  vbs::Value getParent(vbs::Args) { return vbs::Value::nothing(); }
  void putParent(vbs::Args, vbs::CallKind) {}
  vbs::Value getDate(vbs::Args) { return vbs::Value::null(); }  ///< the file keeps none

  std::string name_;
  std::string type_ = "TABLE";
  vbs::Ref<CatalogColumns> columns_ = vbs::make<CatalogColumns>();
  vbs::Ref<CatalogIndexes> indexes_ = vbs::make<CatalogIndexes>();
  vbs::Ref<Connection> connection_;
};

class CatalogTables final : public vbs::NativeObject<CatalogTables, CatalogItems<CatalogTable>> {
 public:
  explicit CatalogTables(vbs::Ref<Connection> connection) {
    bind(std::move(connection), {});
    read();
  }

  std::string_view typeName() const override { return "Tables"; }
  static std::span<const vbs::Member<CatalogTables>> members();

 private:
  void read();
  vbs::Value callAppend(vbs::Args args);
  vbs::Value callDelete(vbs::Args args);
  vbs::Value callRefresh(vbs::Args);
};

/// ADOX.Catalog.
class Catalog final : public vbs::NativeObject<Catalog> {
 public:
  explicit Catalog(const Services& services) : services_(services) {}

  std::string_view typeName() const override { return "Catalog"; }
  static std::span<const vbs::Member<Catalog>> members();

 private:
  vbs::Value callCreate(vbs::Args args);
  vbs::Value getActiveConnection(vbs::Args) { return vbs::Value::object(connection_.get()); }
  void putActiveConnection(vbs::Args args, vbs::CallKind);
  vbs::Value getTables(vbs::Args args);

  const Services& services_;
  vbs::Ref<Connection> connection_;
  vbs::Ref<CatalogTables> tables_;
};

}  // namespace quorvane::ado
