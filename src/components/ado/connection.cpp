#include "components/ado/connection.h"

#include <algorithm>

#include "components/ado/connection_text.h"
#include "components/ado/database_file.h"
#include "components/ado/recordset.h"
#include "components/ado/sql/tokens.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

std::span<const vbs::Member<Connection>> Connection::members() {
  using Self = Connection;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"execute", 1, 3, &Self::callExecute},
      {"open", 0, 4, &Self::callOpen},
      {"close", 0, 0, &Self::callClose},
      {"connectionstring", 0, 0, &Self::getConnectionString, &Self::putConnectionString, true},
      {"begintrans", 0, 0, &Self::callBeginTrans},
      {"committrans", 0, 0, &Self::callCommitTrans},
      {"rollbacktrans", 0, 0, &Self::callRollbackTrans},
      {"openschema", 1, 3, &Self::callOpenSchema},
      {"cancel", 0, 0, &Self::callCancel},
      {"errors", 0, 0, &Self::getErrors},
      {"properties", 0, 0, &Self::getProperties},
      {"state", 0, 0, &Self::getState},
      {"version", 0, 0, &Self::getVersion},
      {"provider", 0, 0, &Self::getProvider, &Self::putProvider},
      {"cursorlocation", 0, 0, &Self::getCursorLocation, &Self::putCursorLocation},
      {"commandtimeout", 0, 0, &Self::getCommandTimeout, &Self::putCommandTimeout},
      {"connectiontimeout", 0, 0, &Self::getConnectionTimeout, &Self::putConnectionTimeout},
      {"mode", 0, 0, &Self::getMode, &Self::putMode},
      {"isolationlevel", 0, 0, &Self::getIsolationLevel, &Self::putIsolationLevel},
      {"attributes", 0, 0, &Self::getAttributes, &Self::putAttributes},
      {"defaultdatabase", 0, 0, &Self::getDefaultDatabase, &Self::putDefaultDatabase},
  };
  return kMembers;
}

Connection::Connection(const Services& services) : services_(services) {}

Connection::~Connection() {
  close();
}

void Connection::detach(const Recordset& recordset) {
  std::erase(recordsets_, &recordset);
}

Database& Connection::database() {
  if (!open_.database) fail(AdoError::InvalidConnection, "Connection");
  return *open_.database;
}

void Connection::open(const std::string& text, const OdbcLogin& login) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Connection");
  if (!text.empty()) text_ = text;
  constexpr std::int32_t kModeRead = 1;
  try {
    open_ =
        openDatabase(services_, {text_, provider_, login, mode_ == kModeRead, connectionTimeout_});
    open_.database->limitCommands(commandTimeout_);
  } catch (const DatabaseError& error) {
    errors_->set(error);
    throw scriptError(error);
  }
  describe(open_.path);
}

void Connection::describe(const std::string& path) {
  const ConnectionParts parts(text_);
  defaultDatabase_ = path;
  properties_->set("Data Source", textValue(path));
  properties_->set("Data Source Name", textValue(path));
  properties_->set("DBMS Name", textValue(open_.database->systemName()));
  properties_->set("DBMS Version", textValue(open_.database->systemVersion()));
  properties_->set("Provider Name", textValue(provider()));
  properties_->set("Transaction DDL", Value::longInt(16));
  text_ = parts.empty() ? text_ : parts.withoutPassword();
}

void Connection::close() {
  const std::vector<Recordset*> open = std::exchange(recordsets_, {});
  for (Recordset* recordset : open) recordset->connectionEnds();
  closeDatabase(services_, std::exchange(open_, {}));
  transactions_ = 0;
}

Value Connection::callOpen(Args args) {
  const auto text = [&](std::size_t i) { return isGiven(args, i) ? utf8Of(args[i]) : ""; };
  open(text(0), {text(1), text(2)});
  return {};
}

Value Connection::callClose(Args) {
  if (!isOpen()) fail(AdoError::ObjectClosed, "Connection");
  if (transactions_ > 0) fail(AdoError::InTransaction, "Connection");
  close();
  return {};
}

Value Connection::callExecute(Args args) {
  if (!isOpen()) fail(AdoError::InvalidConnection, "Connection");
  const std::int32_t options = arguments::number(args, 2, kCmdUnspecified);
  const bool noRecords = options != kCmdUnspecified && (options & kExecuteNoRecords) != 0;
  Command command;
  command.text = commandText(utf8Of(args[0]), options);
  std::int64_t affected = 0;
  const vbs::Ref<Recordset> recordset =
      executeCommand(vbs::Ref<Connection>(this), command, noRecords, affected);
  if (isGiven(args, 1)) args[1].deref() = Value::longInt(static_cast<std::int32_t>(affected));
  return noRecords ? Value::nothing() : Value::object(recordset.get());
}

Value Connection::callBeginTrans(Args) {
  guarded([&](Database& database) {
    if (transactions_ > 0) fail(AdoError::IllegalOperation, "Connection");
    database.begin();
  });
  return Value::longInt(++transactions_);
}

Value Connection::callCommitTrans(Args) {
  guarded([&](Database& database) {
    if (transactions_ == 0) fail(kNoTransaction, "Connection");
    database.commit();
  });
  --transactions_;
  return {};
}

Value Connection::callRollbackTrans(Args) {
  guarded([&](Database& database) {
    if (transactions_ == 0) fail(kNoTransaction, "Connection");
    database.rollback();
  });
  --transactions_;
  return {};
}

Value Connection::callOpenSchema(Args args) {
  struct Kind {
    std::int32_t number;
    SchemaKind kind;
  };
  static constexpr Kind kKinds[] = {
      {4, SchemaKind::Columns},      {12, SchemaKind::Indexes}, {16, SchemaKind::Procedures},
      {20, SchemaKind::Tables},      {23, SchemaKind::Views},   {27, SchemaKind::ForeignKeys},
      {28, SchemaKind::PrimaryKeys},
  };
  const std::int32_t number = vbs::toLong(args[0]);
  for (const Kind& kind : kKinds) {
    if (kind.number != number) continue;
    SchemaRows rows = guarded([&](Database& database) { return database.schema(kind.kind); });
    Value restrictions = isGiven(args, 1) ? args[1].deref() : Value();
    return Value::object(schemaRecordset(services_, std::move(rows), restrictions).get());
  }
  fail(AdoError::FeatureNotAvailable, "Connection");
}

void Connection::putConnectionString(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Connection");
  text_ = utf8Of(args[0]);
}

std::string Connection::provider() const {
  if (const auto named = ConnectionParts(text_).find("provider")) return *named;
  return provider_.empty() ? "MSDASQL" : provider_;
}

void Connection::putProvider(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Connection");
  provider_ = utf8Of(args[0]);
}

void Connection::putCursorLocation(Args args, CallKind) {
  const std::int32_t location = vbs::toLong(args[0]);
  if (location < 1 || location > kUseClient) fail(AdoError::InvalidArgument, "Connection");
  cursorLocation_ = location;
}

void Connection::putCommandTimeout(Args args, CallKind) {
  const std::int32_t seconds = vbs::toLong(args[0]);
  if (seconds < 0) fail(AdoError::InvalidArgument, "Connection");
  commandTimeout_ = seconds;
  if (open_.database) open_.database->limitCommands(seconds);
}

void Connection::putConnectionTimeout(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Connection");
  connectionTimeout_ = vbs::toLong(args[0]);
}

void Connection::putMode(Args args, CallKind) {
  if (isOpen()) fail(AdoError::ObjectOpen, "Connection");
  mode_ = vbs::toLong(args[0]);
}

void Connection::putIsolationLevel(Args args, CallKind) {
  isolationLevel_ = vbs::toLong(args[0]);
}

void Connection::putAttributes(Args args, CallKind) {
  attributes_ = vbs::toLong(args[0]);
}

void Connection::putDefaultDatabase(Args args, CallKind) {
  defaultDatabase_ = utf8Of(args[0]);
}

Value Connection::getState(Args) {
  return Value::longInt(isOpen() ? kStateOpen : kStateClosed);
}

vbs::Ref<Connection> connectionOf(const Value& given, const Services& services) {
  const Value& plain = given.deref();
  if (auto* connection = objectOf<Connection>(plain)) return vbs::Ref<Connection>(connection);
  if (plain.isObject()) {
    if (!plain.asObject()) return {};
    fail(AdoError::InvalidArgument, "Recordset");
  }
  auto connection = vbs::make<Connection>(services);
  connection->open(utf8Of(plain));
  return connection;
}

std::string Connection::commandText(const std::string& text, std::int32_t type,
                                    std::size_t parameters) {
  const std::vector<Token> tokens = sqlTokens(text);
  const std::int32_t kind = type == kCmdUnspecified ? 0 : type & ~kExecuteNoRecords;
  const bool oneName = tokens.size() == 2 &&
                       (tokens[0].kind == TokenKind::Word || tokens[0].kind == TokenKind::Name);
  if (kind & kCmdStoredProc) {
    return tokens[0].isSymbol("{") ? text : database().textOfProcedure(text, parameters);
  }
  if (kind & (kCmdTable | kCmdTableDirect)) return database().textOfTable(text);
  if ((kind & kCmdText) != 0 || !oneName) return text;
  return database().textOfTable(text);
}

}  // namespace quorvane::ado

namespace quorvane {

const Component kAdoConnection{"adodb.connection", [](const Services& services) {
                                 return vbs::Value::adopt(new ado::Connection(services));
                               }};

}  // namespace quorvane
