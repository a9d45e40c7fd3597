#include "components/ado/recordset.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

Value Recordset::getCursorType(Args) {
  return Value::longInt(cursorType_);
}

void Recordset::putCursorType(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  const std::int32_t type = vbs::toLong(args[0]);
  if (type < kForwardOnly || type > kStatic) fail(AdoError::InvalidArgument, "Recordset");
  cursorType_ = type;
}

Value Recordset::getCursorLocation(Args) {
  return Value::longInt(cursorLocation_);
}

void Recordset::putCursorLocation(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  const std::int32_t location = vbs::toLong(args[0]);
  if (location < 1 || location > kUseClient) fail(AdoError::InvalidArgument, "Recordset");
  cursorLocation_ = location;
  locationChosen_ = true;
}

Value Recordset::getLockType(Args) {
  return Value::longInt(lockType_);
}

void Recordset::putLockType(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  const std::int32_t type = vbs::toLong(args[0]);
  if (type < kReadOnly || type > kBatch) fail(AdoError::InvalidArgument, "Recordset");
  lockType_ = type;
}

Value Recordset::getState(Args) {
  return Value::longInt(isOpen() ? kStateOpen : kStateClosed);
}

Value Recordset::getStatus(Args) {
  enum Status : std::int32_t { kNew = 1, kModified = 2, kDeleted = 4, kUnmodified = 8 };
  switch (currentRow().waiting) {
    case StoredRow::Change::New:
      return Value::longInt(kNew);
    case StoredRow::Change::Changed:
      return Value::longInt(kModified);
    case StoredRow::Change::Deleted:
      return Value::longInt(kDeleted);
    default:
      return Value::longInt(kUnmodified);
  }
}

Value Recordset::getEditMode(Args) {
  cursor();
  return Value::longInt(editMode_);
}

Value Recordset::getCacheSize(Args) {
  return Value::longInt(cacheSize_);
}

void Recordset::putCacheSize(Args args, CallKind) {
  const std::int32_t size = vbs::toLong(args[0]);
  if (size < 1) fail(AdoError::InvalidArgument, "Recordset");
  cacheSize_ = size;
}

Value Recordset::getMaxRecords(Args) {
  return Value::longInt(maxRecords_);
}

void Recordset::putMaxRecords(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  const std::int32_t most = vbs::toLong(args[0]);
  if (most < 0) fail(AdoError::InvalidArgument, "Recordset");
  maxRecords_ = most;
}

Value Recordset::getProperties(Args) {
  const auto properties = vbs::make<Properties>();
  properties->set("Updatability", Value::longInt(lockType_ == kReadOnly ? 0 : 7));
  properties->set("Bookmarkable", Value::boolean(cursorType_ != kForwardOnly));
  properties->set("Maximum Rows", Value::longInt(maxRecords_));
  return Value::object(properties.get());
}

Value Recordset::callSupports(Args args) {
  enum Option : std::int32_t {
    kHoldRecords = 256,
    kMovePrevious = 512,
    kBookmarks = 8192,
    kApproxPosition = 16384,
    kUpdateBatch = 65536,
    kResync = 131072,
    kNotify = 262144,
    kFind = 524288,
    kAddNew = 16778240,
    kUpdate = 16809984,
    kDelete = 16779264,
  };
  const std::int32_t option = vbs::toLong(args[0]);
  const bool scrolls = !cursor().forwardOnly();
  const bool changes = lockType_ != kReadOnly && !(connection_ && cursor().store().keys.empty());
  switch (option) {
    case kAddNew:
    case kUpdate:
    case kDelete:
      return Value::boolean(changes);
    case kUpdateBatch:
      return Value::boolean(changes && lockType_ == kBatch);
    case kMovePrevious:
    case kBookmarks:
    case kApproxPosition:
    case kHoldRecords:
      return Value::boolean(scrolls);
    case kFind:
      return Value::boolean(true);
    case kResync:
      return Value::boolean(connection_ && !cursor().store().keys.empty());
    default:
      return Value::boolean(false);
  }
}

}  // namespace quorvane::ado
