#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/command.h"
#include "components/ado/connection.h"
#include "components/ado/cursor.h"
#include "components/component.h"

namespace quorvane::ado {

class Field;

enum CursorType : std::int32_t { kForwardOnly = 0, kKeyset = 1, kDynamic = 2, kStatic = 3 };
enum LockType : std::int32_t { kReadOnly = 1, kPessimistic = 2, kOptimistic = 3, kBatch = 4 };
enum EditMode : std::int32_t { kEditNone = 0, kEditInProgress = 1, kEditAdd = 2, kEditDelete = 4 };

/// ADODB.Recordset. Its rows are read from the database when it is opened; only one that goes
/// forward and reads alone reads on as it goes. Changes go back row by row, by the rows' keys.
class Recordset final : public vbs::NativeObject<Recordset> {
 public:
  explicit Recordset(const Services& services);
  ~Recordset() override;

  // For the parts of the library.
  bool isOpen() const { return cursor_.has_value(); }
  void openResults(vbs::Ref<Connection> connection, std::shared_ptr<Results> results,
                   Command command);
  void openRows(std::shared_ptr<RowStore> store);
  void openClone(const Cursor& cursor, const Recordset& original);
  void connectionEnds();
  void setKind(std::int32_t cursorType, std::int32_t lockType);

  const std::vector<Column>& columns() const;
  std::size_t columnOf(const vbs::Value& key) const;  ///< error 3265
  vbs::Value fieldValue(std::size_t column);
  vbs::Value originalValue(std::size_t column);
  void setFieldValue(std::size_t column, const vbs::Value& value);
  vbs::Ref<Field> field(std::size_t column);
  /// Another number for each row that the recordset comes to.
  std::uint32_t visit() const { return visit_; }
  void appendColumn(Column column);  ///< of a recordset that is not open
  void removeColumn(std::size_t column);

  std::string_view typeName() const override { return "Recordset"; }
  static std::span<const vbs::Member<Recordset>> members();

 private:
  void dropFields();
  Cursor& cursor();  ///< error 3704
  StoredRow& currentRow();
  void close();
  void finishResults() noexcept;

  // recordset_open.cpp
  vbs::Value callOpen(vbs::Args args);
  vbs::Value callClose(vbs::Args);
  vbs::Value callRequery(vbs::Args);
  vbs::Value callNextRecordset(vbs::Args args);
  vbs::Value callClone(vbs::Args);
  vbs::Value callCancel(vbs::Args) { return {}; }
  vbs::Value getActiveConnection(vbs::Args);
  void putActiveConnection(vbs::Args args, vbs::CallKind);
  vbs::Value getActiveCommand(vbs::Args);
  vbs::Value getSource(vbs::Args);
  void putSource(vbs::Args args, vbs::CallKind);
  void openFabricated();
  void openCommand(const vbs::Ref<CommandObject>& command, std::int32_t options);
  void readAgain();
  void adopt(std::shared_ptr<RowStore> store, bool forwardOnly);

  // recordset_persist.cpp
  vbs::Value callSave(vbs::Args args);
  void openSaved(const vbs::Value& source);

  // recordset_properties.cpp
  vbs::Value getCursorType(vbs::Args);
  void putCursorType(vbs::Args args, vbs::CallKind);
  vbs::Value getCursorLocation(vbs::Args);
  void putCursorLocation(vbs::Args args, vbs::CallKind);
  vbs::Value getLockType(vbs::Args);
  void putLockType(vbs::Args args, vbs::CallKind);
  vbs::Value getState(vbs::Args);
  vbs::Value getStatus(vbs::Args);
  vbs::Value getEditMode(vbs::Args);
  vbs::Value getCacheSize(vbs::Args);
  void putCacheSize(vbs::Args args, vbs::CallKind);
  vbs::Value getMaxRecords(vbs::Args);
  void putMaxRecords(vbs::Args args, vbs::CallKind);
  vbs::Value getNumber(vbs::Args) { return vbs::Value::longInt(0); }
  void putNumber(vbs::Args, vbs::CallKind) {}
  vbs::Value getProperties(vbs::Args);
  vbs::Value callSupports(vbs::Args args);

  // recordset_moves.cpp
  vbs::Value getEof(vbs::Args);
  vbs::Value getBof(vbs::Args);
  vbs::Value callMoveNext(vbs::Args);
  vbs::Value callMovePrevious(vbs::Args);
  vbs::Value callMoveFirst(vbs::Args);
  vbs::Value callMoveLast(vbs::Args);
  vbs::Value callMove(vbs::Args args);
  vbs::Value getRecordCount(vbs::Args);
  vbs::Value getPageSize(vbs::Args);
  void putPageSize(vbs::Args args, vbs::CallKind);
  vbs::Value getPageCount(vbs::Args);
  vbs::Value getAbsolutePage(vbs::Args);
  void putAbsolutePage(vbs::Args args, vbs::CallKind);
  vbs::Value getAbsolutePosition(vbs::Args);
  void putAbsolutePosition(vbs::Args args, vbs::CallKind);
  vbs::Value getBookmark(vbs::Args);
  void putBookmark(vbs::Args args, vbs::CallKind);
  vbs::Value callCompareBookmarks(vbs::Args args);
  vbs::Value callFind(vbs::Args args);
  vbs::Value getFilter(vbs::Args);
  void putFilter(vbs::Args args, vbs::CallKind);
  vbs::Value getSort(vbs::Args);
  void putSort(vbs::Args args, vbs::CallKind);
  void leaveRow();  ///< before the place changes: a change in progress is made
  void startAt(const vbs::Value& start);
  void arrange();  ///< Filter and Sort made the cursor's view

  // recordset_rows.cpp
  vbs::Value callGetRows(vbs::Args args);
  vbs::Value callGetString(vbs::Args args);
  std::vector<std::size_t> columnsWanted(vbs::Args args, std::size_t place);

  // recordset_changes.cpp
  vbs::Value callAddNew(vbs::Args args);
  vbs::Value callUpdate(vbs::Args args);
  vbs::Value callCancelUpdate(vbs::Args);
  vbs::Value callDelete(vbs::Args args);
  vbs::Value callUpdateBatch(vbs::Args);
  vbs::Value callCancelBatch(vbs::Args);
  vbs::Value callResync(vbs::Args);
  void checkUpdatable();
  void assign(vbs::Args args);
  void update();
  void cancelUpdate();
  void send(StoredRow& row, const std::map<std::size_t, vbs::Value>& changes, bool isNew);
  void insertRow(StoredRow& row, const std::map<std::size_t, vbs::Value>& changes);
  void deleteRow(StoredRow& row);
  void readBack(StoredRow& row, const std::string& table);
  bool sendsAtOnce() const;
  vbs::Ref<Connection> liveConnection();

  // recordset.cpp
  vbs::Value getFields(vbs::Args args);
  vbs::Value getField(vbs::Args args);
  vbs::Value getCollect(vbs::Args args);
  void putField(vbs::Args args, vbs::CallKind);

  const Services& services_;
  std::vector<Column> columns_;  ///< while it is not open: those that were appended
  std::optional<Cursor> cursor_;
  vbs::Ref<Connection> connection_;
  std::shared_ptr<Results> results_;  ///< of a command with several
  Command command_;                   ///< what Requery asks again
  vbs::Ref<CommandObject> activeCommand_;
  std::string source_;
  std::string savedPath_;  ///< of the file that it was opened from or saved to
  std::string filterText_;
  vbs::Value filter_ = vbs::Value::longInt(0);
  std::string sort_;
  std::map<std::size_t, vbs::Value> edits_;  ///< of the current or the new row, by column
  EditMode editMode_ = kEditNone;
  std::size_t beforeAdding_ = 0;  ///< the place to go back to
  std::int32_t cursorType_ = kForwardOnly;
  std::int32_t lockType_ = kReadOnly;
  std::int32_t cursorLocation_ = kUseServer;
  bool locationChosen_ = false;
  std::int32_t cacheSize_ = 1;
  std::int32_t maxRecords_ = 0;
  std::int32_t pageSize_ = 10;
  std::uint32_t visit_ = 1;

  std::vector<Field*> fields_;  ///< by column, owned; null until asked for

  /// The last names that a script has asked for, with their columns: loops ask again and again.
  struct Asked {
    vbs::Value name;
    std::size_t column = 0;
  };
  mutable std::vector<Asked> asked_;
};

/// Whether what stands in a connection's place says that rows come from where they were saved.
bool namesSavedRows(const vbs::Value& connection);

/// Runs a command. The recordset is closed when there are no rows; null with `noRecords`.
vbs::Ref<Recordset> executeCommand(const vbs::Ref<Connection>& connection, const Command& command,
                                   bool noRecords, std::int64_t& affected);

/// A recordset over rows that describe a database; `restrictions` is an array of values for the
/// first columns.
vbs::Ref<Recordset> schemaRecordset(const Services& services, SchemaRows rows,
                                    const vbs::Value& restrictions);

/// `value` as a column holds it. Error 3421 for what it can't hold.
vbs::Value fittingValue(const vbs::Value& value, const Column& column);

}  // namespace quorvane::ado

namespace quorvane {

extern const Component kAdoRecordset;

}  // namespace quorvane
