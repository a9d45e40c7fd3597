#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/ado/database_file.h"
#include "components/ado/errors.h"
#include "components/ado/property.h"
#include "components/component.h"

namespace quorvane::ado {

class Recordset;

enum ObjectState : std::int32_t { kStateClosed = 0, kStateOpen = 1 };
enum CursorLocation : std::int32_t { kUseServer = 2, kUseClient = 3 };
enum CommandType : std::int32_t {
  kCmdUnspecified = -1,
  kCmdText = 1,
  kCmdTable = 2,
  kCmdStoredProc = 4,
  kCmdUnknown = 8,
  kCmdFile = 256,
  kCmdTableDirect = 512,
};
inline constexpr std::int32_t kExecuteNoRecords = 128;

/// ADODB.Connection.
class Connection final : public vbs::NativeObject<Connection> {
 public:
  explicit Connection(const Services& services);
  ~Connection() override;

  const Services& services() const { return services_; }
  bool isOpen() const { return open_.database != nullptr; }
  /// Throws as Open does.
  void open(const std::string& text, const OdbcLogin& login = {});
  void close();
  std::int32_t cursorLocation() const { return cursorLocation_; }

  /// The text of a command of this type: a table's name becomes a query for its rows.
  std::string commandText(const std::string& text, std::int32_t type, std::size_t parameters = 0);

  /// The database. Error 3709 while the connection is closed.
  Database& database();
  /// Does something with the database. What fails comes to stand in Errors and is thrown as a
  /// script's error.
  template <class Action>
  auto guarded(Action action) {
    try {
      return action(database());
    } catch (const DatabaseError& error) {
      errors_->set(error);
      throw scriptError(error);
    }
  }

  /// Recordsets that are open over the connection end with it.
  void attach(Recordset& recordset) { recordsets_.push_back(&recordset); }
  void detach(const Recordset& recordset);

  std::string_view typeName() const override { return "Connection"; }
  static std::span<const vbs::Member<Connection>> members();

 private:
  vbs::Value callOpen(vbs::Args args);
  vbs::Value callClose(vbs::Args);
  vbs::Value callExecute(vbs::Args args);
  vbs::Value callOpenSchema(vbs::Args args);
  vbs::Value callBeginTrans(vbs::Args);
  vbs::Value callCommitTrans(vbs::Args);
  vbs::Value callRollbackTrans(vbs::Args);
  vbs::Value callCancel(vbs::Args) { return {}; }

  vbs::Value getConnectionString(vbs::Args) { return textValue(text_); }
  void putConnectionString(vbs::Args args, vbs::CallKind);
  vbs::Value getProvider(vbs::Args) { return textValue(provider()); }
  void putProvider(vbs::Args args, vbs::CallKind);
  vbs::Value getCursorLocation(vbs::Args) { return vbs::Value::longInt(cursorLocation_); }
  void putCursorLocation(vbs::Args args, vbs::CallKind);
  vbs::Value getCommandTimeout(vbs::Args) { return vbs::Value::longInt(commandTimeout_); }
  void putCommandTimeout(vbs::Args args, vbs::CallKind);
  vbs::Value getConnectionTimeout(vbs::Args) { return vbs::Value::longInt(connectionTimeout_); }
  void putConnectionTimeout(vbs::Args args, vbs::CallKind);
  vbs::Value getMode(vbs::Args) { return vbs::Value::longInt(mode_); }
  void putMode(vbs::Args args, vbs::CallKind);
  vbs::Value getIsolationLevel(vbs::Args) { return vbs::Value::longInt(isolationLevel_); }
  void putIsolationLevel(vbs::Args args, vbs::CallKind);
  vbs::Value getAttributes(vbs::Args) { return vbs::Value::longInt(attributes_); }
  void putAttributes(vbs::Args args, vbs::CallKind);
  vbs::Value getDefaultDatabase(vbs::Args) { return textValue(defaultDatabase_); }
  void putDefaultDatabase(vbs::Args args, vbs::CallKind);
  vbs::Value getState(vbs::Args);
  vbs::Value getVersion(vbs::Args) { return textValue("6.1"); }
  vbs::Value getErrors(vbs::Args) { return vbs::Value::object(errors_.get()); }
  vbs::Value getProperties(vbs::Args) { return vbs::Value::object(properties_.get()); }

  void describe(const std::string& path);
  std::string provider() const;

  const Services& services_;
  OpenDatabase open_;  ///< without a database: closed
  std::string text_;
  std::string provider_;
  vbs::Ref<Errors> errors_ = vbs::make<Errors>();
  vbs::Ref<Properties> properties_ = vbs::make<Properties>();
  std::vector<Recordset*> recordsets_;
  std::int32_t transactions_ = 0;
  std::int32_t cursorLocation_ = kUseServer;
  std::int32_t commandTimeout_ = 30;
  std::int32_t connectionTimeout_ = 15;
  std::int32_t mode_ = 0;
  std::int32_t isolationLevel_ = 4096;
  std::int32_t attributes_ = 0;
  std::string defaultDatabase_;
};

/// What an ActiveConnection is given: a Connection, or a text for a new one. Null for Nothing.
vbs::Ref<Connection> connectionOf(const vbs::Value& given, const Services& services);

}  // namespace quorvane::ado

namespace quorvane {

extern const Component kAdoConnection;

}  // namespace quorvane
