#include "components/ado/recordset.h"

#include <algorithm>
#include <cmath>

#include "components/ado/field.h"
#include "components/ado/sql/stored_date.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

std::span<const vbs::Member<Recordset>> Recordset::members() {
  using Self = Recordset;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getField, &Self::putField, true},
      {"eof", 0, 0, &Self::getEof},
      {"movenext", 0, 0, &Self::callMoveNext},
      {"fields", 0, 1, &Self::getFields, &Self::putField},
      {"collect", 1, 1, &Self::getCollect, &Self::putField},
      {"open", 0, 5, &Self::callOpen},
      {"close", 0, 0, &Self::callClose},
      {"bof", 0, 0, &Self::getBof},
      {"addnew", 0, 2, &Self::callAddNew},
      {"update", 0, 2, &Self::callUpdate},
      {"recordcount", 0, 0, &Self::getRecordCount},
      {"movefirst", 0, 0, &Self::callMoveFirst},
      {"movelast", 0, 0, &Self::callMoveLast},
      {"moveprevious", 0, 0, &Self::callMovePrevious},
      {"move", 1, 2, &Self::callMove},
      {"pagesize", 0, 0, &Self::getPageSize, &Self::putPageSize},
      {"pagecount", 0, 0, &Self::getPageCount},
      {"absolutepage", 0, 0, &Self::getAbsolutePage, &Self::putAbsolutePage},
      {"absoluteposition", 0, 0, &Self::getAbsolutePosition, &Self::putAbsolutePosition},
      {"cursorlocation", 0, 0, &Self::getCursorLocation, &Self::putCursorLocation},
      {"cursortype", 0, 0, &Self::getCursorType, &Self::putCursorType},
      {"locktype", 0, 0, &Self::getLockType, &Self::putLockType},
      {"activeconnection", 0, 0, &Self::getActiveConnection, &Self::putActiveConnection},
      {"activecommand", 0, 0, &Self::getActiveCommand},
      {"source", 0, 0, &Self::getSource, &Self::putSource},
      {"state", 0, 0, &Self::getState},
      {"status", 0, 0, &Self::getStatus},
      {"editmode", 0, 0, &Self::getEditMode},
      {"delete", 0, 1, &Self::callDelete},
      {"cancelupdate", 0, 0, &Self::callCancelUpdate},
      {"updatebatch", 0, 1, &Self::callUpdateBatch},
      {"cancelbatch", 0, 1, &Self::callCancelBatch},
      {"resync", 0, 2, &Self::callResync},
      {"getrows", 0, 3, &Self::callGetRows},
      {"getstring", 0, 5, &Self::callGetString},
      {"find", 1, 4, &Self::callFind},
      {"filter", 0, 0, &Self::getFilter, &Self::putFilter},
      {"sort", 0, 0, &Self::getSort, &Self::putSort},
      {"bookmark", 0, 0, &Self::getBookmark, &Self::putBookmark},
      {"clone", 0, 1, &Self::callClone},
      {"nextrecordset", 0, 1, &Self::callNextRecordset},
      {"requery", 0, 1, &Self::callRequery},
      {"supports", 1, 1, &Self::callSupports},
      {"save", 0, 2, &Self::callSave},
      {"comparebookmarks", 2, 2, &Self::callCompareBookmarks},
      {"cancel", 0, 0, &Self::callCancel},
      {"cachesize", 0, 0, &Self::getCacheSize, &Self::putCacheSize},
      {"maxrecords", 0, 0, &Self::getMaxRecords, &Self::putMaxRecords},
      {"marshaloptions", 0, 0, &Self::getNumber, &Self::putNumber},
      {"stayinsync", 0, 0, &Self::getNumber, &Self::putNumber},
      {"properties", 0, 0, &Self::getProperties},
  };
  return kMembers;
}

Recordset::Recordset(const Services& services) : services_(services) {}

Recordset::~Recordset() {
  finishResults();
  dropFields();
  if (connection_) connection_->detach(*this);
}

void Recordset::connectionEnds() {
  cursor_.reset();
  results_.reset();
  edits_.clear();
  editMode_ = kEditNone;
}

Cursor& Recordset::cursor() {
  if (!cursor_) fail(AdoError::ObjectClosed, "Recordset");
  return *cursor_;
}

StoredRow& Recordset::currentRow() {
  StoredRow* row = cursor().current();
  if (!row) fail(AdoError::NoCurrentRecord, "Recordset");
  return *row;
}

const std::vector<Column>& Recordset::columns() const {
  return cursor_ ? cursor_->store().columns : columns_;
}

/// A name's text is often the very same body each time; it is held here, so that no other text can
/// come to stand in its place.
std::size_t Recordset::columnOf(const Value& key) const {
  const Value& given = key.deref();
  if (given.isString() && given.stringRep()) {
    for (const Asked& asked : asked_) {
      if (asked.name.stringRep() == given.stringRep()) return asked.column;
    }
  }
  const Value plain = vbs::plainValue(given);
  const std::size_t count = columns().size();
  std::size_t column = count;
  if (!plain.isString()) {
    const std::int32_t index = vbs::toLong(plain);
    if (index >= 0) column = static_cast<std::size_t>(index);
  } else if (cursor_) {
    column = cursor_->store().columnOf(utf8Of(plain));
  } else {
    RowStore store;
    store.columns = columns_;
    column = store.columnOf(utf8Of(plain));
  }
  if (column >= count) fail(AdoError::ItemNotFound, "Recordset");
  constexpr std::size_t kRemembered = 32;
  if (cursor_ && plain.isString() && plain.stringRep() && asked_.size() < kRemembered) {
    asked_.push_back({plain, column});
  }
  return column;
}

Value Recordset::fieldValue(std::size_t column) {
  Cursor& place = cursor();
  if (column >= columns().size()) fail(AdoError::ItemNotFound, "Field");
  if (editMode_ != kEditNone) {
    const auto edited = edits_.find(column);
    if (edited != edits_.end()) return edited->second;
    if (editMode_ == kEditAdd) return Value();
  }
  const StoredRow* row = place.current();
  if (!row) fail(AdoError::NoCurrentRecord, "Field");
  return row->values[column];
}

Value Recordset::originalValue(std::size_t column) {
  if (editMode_ == kEditAdd) return Value();
  const StoredRow& row = currentRow();
  return row.original.empty() ? row.values[column] : row.original[column];
}

void Recordset::setFieldValue(std::size_t column, const Value& value) {
  checkUpdatable();
  if (column >= columns().size()) fail(AdoError::ItemNotFound, "Field");
  if (editMode_ == kEditNone) {
    currentRow();
    editMode_ = kEditInProgress;
  }
  edits_[column] = fittingValue(value, columns()[column]);
}

void Recordset::appendColumn(Column column) {
  if (cursor_ || connection_) fail(AdoError::IllegalOperation, "Fields");
  for (const Column& other : columns_) {
    if (other.name == column.name) fail(AdoError::ObjectInCollection, "Fields");
  }
  columns_.push_back(std::move(column));
}

void Recordset::removeColumn(std::size_t column) {
  if (cursor_) fail(AdoError::IllegalOperation, "Fields");
  columns_.erase(columns_.begin() + static_cast<std::ptrdiff_t>(column));
}

Value Recordset::getFields(Args args) {
  return args.empty() ? Value::adopt(new Fields(this)) : getField(args);
}

Value Recordset::getField(Args args) {
  return Value::object(field(columnOf(args[0])).get());
}

Value Recordset::getCollect(Args args) {
  return fieldValue(columnOf(args[0]));
}

/// Pages read fields by the thousand, so those that nobody holds wait here for the next to ask.
vbs::Ref<Field> Recordset::field(std::size_t column) {
  if (fields_.size() != columns().size()) {
    dropFields();
    fields_.resize(columns().size());
  }
  Field*& kept = fields_[column];
  if (!kept) kept = Field::makeKept(column);
  vbs::Ref<Field> found = kept->use(*this);
  return found ? found : vbs::make<Field>(this, column);
}

void Recordset::dropFields() {
  for (Field* kept : fields_) {
    if (kept) kept->giveUp();
  }
  fields_.clear();
}

void Recordset::putField(Args args, CallKind) {
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  setFieldValue(columnOf(args[0]), args[1]);
}

namespace {

bool isTextType(DataType type) {
  switch (type) {
    case DataType::Bstr:
    case DataType::Char:
    case DataType::WChar:
    case DataType::VarChar:
    case DataType::LongVarChar:
    case DataType::VarWChar:
    case DataType::LongVarWChar:
      return true;
    default:
      return false;
  }
}

Value fittingText(const Value& value, const Column& column) {
  const vbs::String text = vbs::toString(value);
  const bool bounded = column.type == DataType::VarWChar || column.type == DataType::VarChar ||
                       column.type == DataType::WChar || column.type == DataType::Char;
  if (bounded && text.length() > static_cast<std::size_t>(column.size)) {
    fail(kMultiStep, "Recordset");
  }
  return text;
}

Value fittingDate(const Value& value) {
  if (value.isString()) {
    if (const auto days = dateOfStored(utf8Of(value))) return Value::date(*days);
  }
  return Value::date(vbs::toDate(value));
}

/// Whole numbers outside of 32 bits stay as they are.
Value fittingNumber(const Value& value, const Column& column) {
  switch (column.type) {
    case DataType::SmallInt:
      return Value::integer(vbs::toInteger(value));
    case DataType::UnsignedTinyInt:
    case DataType::TinyInt:
      return Value::byte(vbs::toByte(value));
    case DataType::Integer:
    case DataType::BigInt: {
      const double number = std::nearbyint(vbs::toDouble(value));
      return std::abs(number) <= INT32_MAX ? Value::longInt(static_cast<std::int32_t>(number))
                                           : Value::number(number);
    }
    case DataType::Single:
      return Value::single(vbs::toSingle(value));
    case DataType::Currency:
      return Value::currency(vbs::toCurrency(value));
    default:
      return Value::number(vbs::toDouble(value));
  }
}

/// A text gives its bytes, two a character: so pages make an array of a byte string.
Value fittingBytes(const Value& value) {
  if (!value.isString()) return value;
  return Value::array(vbs::ArrayRep::fromBytes(value.asString().toWide().raw()));
}

}  // namespace

Value fittingValue(const Value& given, const Column& column) {
  Value value = vbs::plainValue(given);
  if (value.isNull() || value.isEmpty()) return Value::null();
  try {
    if (isTextType(column.type)) return fittingText(value, column);
    switch (column.type) {
      case DataType::Boolean:
        return Value::boolean(vbs::toBoolean(value));
      case DataType::Date:
      case DataType::DbDate:
      case DataType::DbTime:
      case DataType::DbTimeStamp:
        return fittingDate(value);
      case DataType::SmallInt:
      case DataType::UnsignedTinyInt:
      case DataType::TinyInt:
      case DataType::Integer:
      case DataType::BigInt:
      case DataType::Single:
      case DataType::Double:
      case DataType::Currency:
      case DataType::Decimal:
      case DataType::Numeric:
        return fittingNumber(value, column);
      case DataType::Binary:
      case DataType::VarBinary:
      case DataType::LongVarBinary:
        return fittingBytes(value);
      default:
        return value;
    }
  } catch (const vbs::ScriptError& error) {
    constexpr std::int32_t kTypeMismatch = 13;
    constexpr std::int32_t kOverflow = 6;
    if (error.number == kTypeMismatch) fail(AdoError::DataConversion, "Recordset");
    if (error.number == kOverflow) fail(kMultiStep, "Recordset");
    throw;
  }
}

}  // namespace quorvane::ado

namespace quorvane {

const Component kAdoRecordset{"adodb.recordset", [](const Services& services) {
                                return vbs::Value::adopt(new ado::Recordset(services));
                              }};

}  // namespace quorvane
