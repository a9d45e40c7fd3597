#include <utility>

#include "components/ado/criteria.h"
#include "components/ado/recordset.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::Value;

namespace {

enum Affected : std::int32_t { kAffectCurrent = 1, kAffectGroup = 2, kAffectAll = 3 };

}  // namespace

void Recordset::checkUpdatable() {
  const RowStore& store = cursor().store();
  const bool ofDatabase = !command_.text.empty();
  if (lockType_ == kReadOnly || (ofDatabase && store.keys.empty())) {
    fail(kNotUpdatable, "Recordset");
  }
}

/// A batch, and a recordset without a database, keep their changes.
bool Recordset::sendsAtOnce() const {
  return connection_ && lockType_ != kBatch;
}

vbs::Ref<Connection> Recordset::liveConnection() {
  if (!connection_ || !connection_->isOpen()) fail(AdoError::InvalidConnection, "Recordset");
  return connection_;
}

/// A name and a value, or an array of each.
void Recordset::assign(Args args) {
  const Value& names = args[0].deref();
  if (!names.isArray()) {
    if (!isGiven(args, 1)) fail(AdoError::InvalidArgument, "Recordset");
    return setFieldValue(columnOf(names), args[1]);
  }
  const Value values = isGiven(args, 1) ? args[1].deref() : Value();
  if (!values.isArray() || values.asArray()->count != names.asArray()->count) {
    fail(AdoError::InvalidArgument, "Recordset");
  }
  for (std::size_t i = 0; i < names.asArray()->count; ++i) {
    setFieldValue(columnOf(names.asArray()->element(i)), values.asArray()->element(i));
  }
}

Value Recordset::callAddNew(Args args) {
  checkUpdatable();
  leaveRow();
  Cursor& place = cursor();
  place.makeScrollable();
  beforeAdding_ = place.current() ? place.position() : 0;
  editMode_ = kEditAdd;
  edits_.clear();
  if (!isGiven(args, 0)) return {};
  assign(args);
  update();
  return {};
}

Value Recordset::callUpdate(Args args) {
  checkUpdatable();
  if (isGiven(args, 0)) assign(args);
  update();
  return {};
}

void Recordset::update() {
  if (editMode_ == kEditNone) return;
  Cursor& place = cursor();
  if (editMode_ == kEditAdd) {
    StoredRow fresh;
    fresh.values.assign(columns().size() + place.store().keys.size(), Value::null());
    for (const auto& [column, value] : edits_) fresh.values[column] = value;
    if (sendsAtOnce()) insertRow(fresh, edits_);
    StoredRow& row = place.store().add(std::move(fresh.values));
    if (!sendsAtOnce()) row.waiting = StoredRow::Change::New;
    place.showAdded(place.store().rows.size() - 1);
  } else {
    StoredRow& row = currentRow();
    if (sendsAtOnce()) {
      send(row, edits_, false);
    } else {
      if (row.original.empty()) row.original = row.values;
      if (row.waiting == StoredRow::Change::None) row.waiting = StoredRow::Change::Changed;
      for (const auto& [column, value] : edits_) row.values[column] = value;
    }
  }
  edits_.clear();
  editMode_ = kEditNone;
  ++visit_;
}

void Recordset::insertRow(StoredRow& row, const std::map<std::size_t, Value>& changes) {
  const auto connection = liveConnection();
  RowStore& store = cursor().store();
  if (store.keys.empty()) fail(kNotUpdatable, "Recordset");
  std::string table = store.keys[0].table;
  if (!changes.empty()) {
    const std::string& named = store.columns[changes.begin()->first].table;
    if (!named.empty()) table = named;
  }
  FieldValues values;
  for (const auto& [column, value] : changes) {
    const Column& info = store.columns[column];
    if (equalsNoCase(info.table, table)) values.emplace_back(info.column, value);
  }
  const Value key =
      connection->guarded([&](Database& database) { return database.insertRow(table, values); });
  for (const KeyPlace& place : store.keys) {
    if (equalsNoCase(place.table, table)) row.values[place.index] = key;
  }
  readBack(row, table);
}

/// What the database has made of a row: autonumbers, defaults, what its triggers do.
void Recordset::readBack(StoredRow& row, const std::string& table) {
  RowStore& store = cursor().store();
  std::vector<Column> wanted;
  std::vector<std::size_t> places;
  Value key;
  for (const KeyPlace& place : store.keys) {
    if (equalsNoCase(place.table, table)) key = row.values[place.index];
  }
  for (std::size_t i = 0; i < store.columns.size(); ++i) {
    if (!equalsNoCase(store.columns[i].table, table)) continue;
    wanted.push_back(store.columns[i]);
    places.push_back(i);
  }
  if (wanted.empty() || key.isEmpty() || key.isNull()) return;
  const Row values = liveConnection()->guarded(
      [&](Database& database) { return database.readRow(table, key, wanted); });
  for (std::size_t i = 0; i < values.size(); ++i) row.values[places[i]] = values[i];
}

/// Sends the changes of a row, table by table.
void Recordset::send(StoredRow& row, const std::map<std::size_t, Value>& changes, bool isNew) {
  if (isNew) return insertRow(row, changes);
  const auto connection = liveConnection();
  RowStore& store = cursor().store();
  for (const KeyPlace& key : store.keys) {
    FieldValues values;
    for (const auto& [column, value] : changes) {
      const Column& info = store.columns[column];
      if (equalsNoCase(info.table, key.table)) values.emplace_back(info.column, value);
    }
    if (values.empty()) continue;
    const std::int64_t affected = connection->guarded([&](Database& database) {
      return database.updateRow(key.table, row.values[key.index], values);
    });
    if (affected == 0) fail(kRowChanged, "Recordset");
    row.values[key.index] = connection->guarded([&](Database& database) {
      return database.keyAfter(key.table, row.values[key.index], values);
    });
    readBack(row, key.table);
  }
  row.original.clear();
}

void Recordset::cancelUpdate() {
  if (editMode_ == kEditAdd && beforeAdding_ > 0) cursor().moveToPosition(beforeAdding_);
  edits_.clear();
  editMode_ = kEditNone;
}

Value Recordset::callCancelUpdate(Args) {
  cursor();
  cancelUpdate();
  return {};
}

/// The row that a recordset over several tables deletes is the first table's.
void Recordset::deleteRow(StoredRow& row) {
  RowStore& store = cursor().store();
  if (sendsAtOnce()) {
    const KeyPlace& key = store.keys[0];
    const std::int64_t affected = liveConnection()->guarded(
        [&](Database& database) { return database.deleteRow(key.table, row.values[key.index]); });
    if (affected == 0) fail(kRowChanged, "Recordset");
  } else if (row.waiting != StoredRow::Change::New) {
    if (row.original.empty()) row.original = row.values;
    row.waiting = StoredRow::Change::Deleted;
  }
  store.markDeleted(row);
}

Value Recordset::callDelete(Args args) {
  checkUpdatable();
  if (editMode_ == kEditAdd) {
    cancelUpdate();
    return {};
  }
  const std::int32_t affected = arguments::number(args, 0, kAffectCurrent);
  Cursor& place = cursor();
  if (affected == kAffectCurrent) {
    deleteRow(currentRow());
  } else if (affected == kAffectGroup || affected == kAffectAll) {
    for (std::size_t i = 0; i < place.rowsInView(); ++i) {
      StoredRow* row = place.rowAt(i);
      if (row && !row->deleted) deleteRow(*row);
    }
  } else {
    fail(AdoError::InvalidArgument, "Recordset");
  }
  edits_.clear();
  editMode_ = kEditNone;
  return {};
}

Value Recordset::callUpdateBatch(Args) {
  checkUpdatable();
  update();
  if (lockType_ != kBatch || !connection_) return {};
  RowStore& store = cursor().store();
  for (StoredRow& row : store.rows) {
    if (row.waiting == StoredRow::Change::None) continue;
    if (row.waiting == StoredRow::Change::Deleted) {
      const KeyPlace& key = store.keys[0];
      liveConnection()->guarded(
          [&](Database& database) { return database.deleteRow(key.table, row.values[key.index]); });
    } else if (!row.deleted) {
      const bool isNew = row.waiting == StoredRow::Change::New;
      std::map<std::size_t, Value> changes;
      for (std::size_t i = 0; i < store.columns.size(); ++i) {
        const bool same = !isNew && compareValues(row.values[i], row.original[i]) == 0 &&
                          row.values[i].isNull() == row.original[i].isNull();
        if (!same && !(isNew && row.values[i].isNull())) changes[i] = row.values[i];
      }
      send(row, changes, isNew);
    }
    row.waiting = StoredRow::Change::None;
    row.original.clear();
  }
  return {};
}

Value Recordset::callCancelBatch(Args) {
  checkUpdatable();
  cancelUpdate();
  RowStore& store = cursor().store();
  for (StoredRow& row : store.rows) {
    if (row.waiting == StoredRow::Change::New) store.markDeleted(row);
    if (row.waiting == StoredRow::Change::Deleted) store.unmarkDeleted(row);
    if (!row.original.empty()) row.values = std::exchange(row.original, {});
    row.waiting = StoredRow::Change::None;
  }
  return {};
}

/// Reads the current row again.
Value Recordset::callResync(Args) {
  StoredRow& row = currentRow();
  for (const KeyPlace& key : cursor().store().keys) readBack(row, key.table);
  return {};
}

}  // namespace quorvane::ado
