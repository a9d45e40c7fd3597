#include <utility>

#include "components/ado/recordset.h"
#include "components/script_files.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

void Recordset::setKind(std::int32_t cursorType, std::int32_t lockType) {
  cursorType_ = cursorType;
  lockType_ = lockType;
}

void Recordset::adopt(std::shared_ptr<RowStore> store, bool forwardOnly) {
  if (maxRecords_ > 0) store->limitRows(static_cast<std::size_t>(maxRecords_));
  cursor_.emplace(std::move(store), forwardOnly);
  asked_.clear();
  dropFields();
  filter_ = Value::longInt(0);
  filterText_.clear();
  sort_.clear();
  edits_.clear();
  editMode_ = kEditNone;
}

void Recordset::openRows(std::shared_ptr<RowStore> store) {
  adopt(std::move(store), false);
  cursorLocation_ = kUseClient;
  cursorType_ = kStatic;
}

void Recordset::openClone(const Cursor& original, const Recordset& other) {
  cursor_.emplace(original.shared(), false);
  connection_ = other.connection_;
  if (connection_) connection_->attach(*this);
  command_ = other.command_;
  cursorType_ = other.cursorType_;
  cursorLocation_ = other.cursorLocation_;
}

/// With rows the recordset is open, without it stays closed and waits for NextRecordset.
void Recordset::openResults(vbs::Ref<Connection> connection, std::shared_ptr<Results> results,
                            Command command) {
  if (connection_) connection_->detach(*this);
  connection_ = std::move(connection);
  connection_->attach(*this);
  command_ = std::move(command);
  results_ = std::move(results);
  if (results_->columns().empty()) return;
  const bool streams =
      cursorLocation_ != kUseClient && cursorType_ == kForwardOnly && lockType_ == kReadOnly;
  if (cursorLocation_ == kUseClient) cursorType_ = kStatic;
  adopt(std::make_shared<RowStore>(results_), streams);
}

void Recordset::openFabricated() {
  if (columns_.empty()) fail(AdoError::InvalidConnection, "Recordset");
  auto store = std::make_shared<RowStore>();
  store->columns = columns_;
  if (lockType_ == kReadOnly) lockType_ = kOptimistic;
  openRows(std::move(store));
}

namespace {

/// SQL names no file; a path is looked for only where scripts may go.
bool isSavedFile(const Services& services, const std::string& source) {
  if (source.find('\n') != source.npos || source.empty()) return false;
  if (startsWithNoCase(source, "select ")) return false;
  try {
    const ScriptFiles files(services);
    const auto info = files.files().stat(files.allowedPath(textValue(source)));
    return info && !info->isFolder;
  } catch (const vbs::ScriptError&) {  // nothing that the script may know of
    return false;
  }
}

}  // namespace

/// Source, ActiveConnection, CursorType, LockType, Options
Value Recordset::callOpen(Args args) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  const std::int32_t options = arguments::number(args, 4, kCmdUnspecified);
  const bool saved = options == kCmdFile || (isGiven(args, 1) && namesSavedRows(args[1]));
  if (isGiven(args, 1) && !saved) connection_ = connectionOf(args[1], services_);
  cursorType_ = arguments::number(args, 2, cursorType_);
  lockType_ = arguments::number(args, 3, lockType_);
  if (cursorType_ == -1) cursorType_ = kForwardOnly;
  if (lockType_ == -1) lockType_ = kReadOnly;
  if (cursorType_ < kForwardOnly || cursorType_ > kStatic || lockType_ < kReadOnly ||
      lockType_ > kBatch) {
    fail(AdoError::InvalidArgument, "Recordset");
  }
  if (isGiven(args, 0)) {
    activeCommand_ = vbs::Ref<CommandObject>(objectOf<CommandObject>(args[0]));
    const bool isObject = args[0].deref().isObject();
    if (!activeCommand_ && (isObject || saved)) {
      openSaved(args[0].deref());
      return {};
    }
    if (!activeCommand_) source_ = utf8Of(args[0]);
  }
  if (activeCommand_) {
    openCommand(activeCommand_, options);
    return {};
  }
  if (!connection_ && source_.empty()) {
    openFabricated();
    return {};
  }
  if (!connection_ && (saved || isSavedFile(services_, source_))) {
    openSaved(textValue(source_));
    return {};
  }
  if (!connection_ || !connection_->isOpen()) fail(AdoError::InvalidConnection, "Recordset");
  command_ = {};
  command_.text = connection_->commandText(source_, options);
  readAgain();
  return {};
}

void Recordset::openCommand(const vbs::Ref<CommandObject>& command, std::int32_t options) {
  command_ = command->command(Value(), options);
  connection_ = command->connection();
  readAgain();
}

/// Asks the command that the recordset is of.
void Recordset::readAgain() {
  if (!locationChosen_) cursorLocation_ = connection_->cursorLocation();
  command_.updatable = lockType_ != kReadOnly;
  std::shared_ptr<Results> results = connection_->guarded(
      [&](Database& database) { return std::shared_ptr<Results>(database.execute(command_)); });
  openResults(connection_, std::move(results), command_);
}

/// The statements that nobody has asked the results of are run all the same.
void Recordset::finishResults() noexcept {
  const std::shared_ptr<Results> left = std::exchange(results_, nullptr);
  try {
    while (left && left->nextResult()) {
    }
  } catch (...) {  // nobody is left to tell
  }
}

void Recordset::close() {
  cursor_.reset();
  edits_.clear();
  editMode_ = kEditNone;
  asked_.clear();
  finishResults();
}

Value Recordset::callClose(Args) {
  if (!isOpen()) fail(AdoError::ObjectClosed, "Recordset");
  if (editMode_ != kEditNone && sendsAtOnce()) fail(AdoError::IllegalOperation, "Recordset");
  close();
  return {};
}

Value Recordset::callRequery(Args) {
  if (!isOpen()) fail(AdoError::ObjectClosed, "Recordset");
  liveConnection();
  close();
  readAgain();
  return {};
}

Value Recordset::callNextRecordset(Args args) {
  std::int64_t affected = -1;
  const auto next = vbs::make<Recordset>(services_);
  const bool found = results_ && connection_ && connection_->guarded([&](Database&) {
    if (cursor_) cursor_->makeScrollable();  // what is still to come of this one stands before
    return results_->nextResult();
  });
  if (found) {
    affected = results_->affected();
    next->cursorLocation_ = cursorLocation_;
    next->openResults(connection_, std::exchange(results_, nullptr), command_);
  }
  close();
  if (isGiven(args, 0)) args[0].deref() = Value::longInt(static_cast<std::int32_t>(affected));
  return found ? Value::object(next.get()) : Value::nothing();
}

Value Recordset::callClone(Args) {
  Cursor& place = cursor();
  place.makeScrollable();
  const auto clone = vbs::make<Recordset>(services_);
  clone->lockType_ = lockType_;
  clone->openClone(place, *this);
  return Value::object(clone.get());
}

Value Recordset::getActiveConnection(Args) {
  return connection_ ? Value::object(connection_.get()) : Value::nothing();
}

/// Nothing leaves the rows without a database.
void Recordset::putActiveConnection(Args args, CallKind) {
  vbs::Ref<Connection> connection = connectionOf(args[0], services_);
  if (isOpen()) {
    cursor().makeScrollable();
    if (connection_) connection_->detach(*this);
    results_.reset();
    if (connection) connection->attach(*this);
  }
  connection_ = std::move(connection);
}

Value Recordset::getActiveCommand(Args) {
  return Value::object(activeCommand_.get());
}

Value Recordset::getSource(Args) {
  return textValue(source_.empty() ? command_.text : source_);
}

void Recordset::putSource(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Recordset");
  activeCommand_ = vbs::Ref<CommandObject>(objectOf<CommandObject>(args[0]));
  if (!activeCommand_) source_ = utf8Of(args[0]);
}

vbs::Ref<Recordset> executeCommand(const vbs::Ref<Connection>& connection, const Command& command,
                                   bool noRecords, std::int64_t& affected) {
  return connection->guarded([&](Database& database) {
    std::shared_ptr<Results> results(database.execute(command));
    affected = results->affected();
    if (noRecords) {
      while (results->nextResult()) affected = std::max(affected, results->affected());
      return vbs::Ref<Recordset>();
    }
    auto recordset = vbs::make<Recordset>(connection->services());
    if (connection->cursorLocation() == kUseClient) recordset->setKind(kStatic, kReadOnly);
    recordset->openResults(connection, std::move(results), command);
    return recordset;
  });
}

vbs::Ref<Recordset> schemaRecordset(const Services& services, SchemaRows rows,
                                    const Value& restrictions) {
  auto store = std::make_shared<RowStore>();
  store->columns = std::move(rows.columns);
  const vbs::ArrayRep* wanted = restrictions.isArray() ? restrictions.asArray() : nullptr;
  for (Row& row : rows.rows) {
    bool matches = true;
    for (std::size_t i = 0; wanted && i < std::min(wanted->count, row.size()); ++i) {
      const Value value = vbs::plainValue(wanted->element(i));
      if (value.isEmpty() || value.isNull() || value.isMissing() || row[i].isNull()) continue;
      matches = matches && equalsNoCase(utf8Of(value), utf8Of(row[i]));
    }
    if (matches) store->add(std::move(row));
  }
  auto recordset = vbs::make<Recordset>(services);
  recordset->openRows(std::move(store));
  return recordset;
}

}  // namespace quorvane::ado
