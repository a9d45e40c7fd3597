#pragma once

#include <string>
#include <string_view>

#include "components/ado/connection.h"
#include "components/ado/items.h"
#include "components/component.h"

namespace quorvane::ado {

enum ParameterDirection : std::int32_t { kInput = 1, kOutput = 2, kInputOutput = 3, kReturn = 4 };

/// ADODB.Parameter.
class Parameter final : public vbs::NativeObject<Parameter> {
 public:
  const std::string& name() const { return name_; }
  std::int32_t direction() const { return direction_; }
  const vbs::Value& value() const { return value_; }
  void setValue(const vbs::Value& value);
  /// The value as the database is to get it.
  vbs::Value bound() const;

  /// name, type, direction, size, value
  void describe(vbs::Args args);

  std::string_view typeName() const override { return "Parameter"; }
  static std::span<const vbs::Member<Parameter>> members();

 private:
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  void putName(vbs::Args args, vbs::CallKind) { name_ = utf8Of(args[0]); }
  vbs::Value getValue(vbs::Args) { return value_; }
  void putValue(vbs::Args args, vbs::CallKind) { setValue(args[0]); }
  vbs::Value getType(vbs::Args) { return vbs::Value::longInt(type_); }
  void putType(vbs::Args args, vbs::CallKind) { type_ = vbs::toLong(args[0]); }
  vbs::Value getDirection(vbs::Args) { return vbs::Value::longInt(direction_); }
  void putDirection(vbs::Args args, vbs::CallKind) { direction_ = vbs::toLong(args[0]); }
  vbs::Value getSize(vbs::Args) { return vbs::Value::longInt(size_); }
  void putSize(vbs::Args args, vbs::CallKind) { size_ = vbs::toLong(args[0]); }
  vbs::Value getPrecision(vbs::Args) { return vbs::Value::longInt(precision_); }
  void putPrecision(vbs::Args args, vbs::CallKind) { precision_ = vbs::toLong(args[0]); }
  vbs::Value getScale(vbs::Args) { return vbs::Value::longInt(scale_); }
  void putScale(vbs::Args args, vbs::CallKind) { scale_ = vbs::toLong(args[0]); }
  vbs::Value getAttributes(vbs::Args) { return vbs::Value::longInt(attributes_); }
  void putAttributes(vbs::Args args, vbs::CallKind) { attributes_ = vbs::toLong(args[0]); }
  vbs::Value callAppendChunk(vbs::Args args);

  std::string name_;
  vbs::Value value_;
  std::int32_t type_ = 0;
  std::int32_t direction_ = kInput;
  std::int32_t size_ = 0;
  std::int32_t precision_ = 0;
  std::int32_t scale_ = 0;
  std::int32_t attributes_ = 0;
};

/// Parameters of a command.
class Parameters final : public vbs::NativeObject<Parameters> {
 public:
  Items<Parameter>& items() { return items_; }

  std::string_view typeName() const override { return "Parameters"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return items_.walk(); }
  static std::span<const vbs::Member<Parameters>> members();

  vbs::Value getItem(vbs::Args args) { return vbs::Value::object(&item(args)); }
  void putItem(vbs::Args args, vbs::CallKind) { item(args).setValue(args[1]); }

 private:
  Parameter& item(vbs::Args args);
  vbs::Value getCount(vbs::Args) { return items_.count(); }
  vbs::Value callAppend(vbs::Args args);
  vbs::Value callDelete(vbs::Args args);
  vbs::Value callRefresh(vbs::Args) { return {}; }

  Items<Parameter> items_;
};

/// ADODB.Command.
class CommandObject final : public vbs::NativeObject<CommandObject> {
 public:
  explicit CommandObject(const Services& services) : services_(services) {}

  const vbs::Ref<Connection>& connection() const { return connection_; }
  /// What is to be run. `values` (an array, or nothing) stand for the parameters' own; `options`
  /// for the command's type.
  Command command(const vbs::Value& values, std::int32_t options);

  std::string_view typeName() const override { return "Command"; }
  static std::span<const vbs::Member<CommandObject>> members();

 private:
  vbs::Value callExecute(vbs::Args args);
  vbs::Value callCreateParameter(vbs::Args args);
  vbs::Value callCancel(vbs::Args) { return {}; }
  vbs::Value getParameters(vbs::Args args);
  void putParameter(vbs::Args args, vbs::CallKind kind);
  vbs::Value getActiveConnection(vbs::Args);
  void putActiveConnection(vbs::Args args, vbs::CallKind);
  vbs::Value getText(vbs::Args) { return textValue(text_); }
  void putText(vbs::Args args, vbs::CallKind) { text_ = utf8Of(args[0]); }
  vbs::Value getType(vbs::Args) { return vbs::Value::longInt(type_); }
  void putType(vbs::Args args, vbs::CallKind) { type_ = vbs::toLong(args[0]); }
  vbs::Value getTimeout(vbs::Args) { return vbs::Value::longInt(timeout_); }
  void putTimeout(vbs::Args args, vbs::CallKind) { timeout_ = vbs::toLong(args[0]); }
  vbs::Value getPrepared(vbs::Args) { return vbs::Value::boolean(prepared_); }
  void putPrepared(vbs::Args args, vbs::CallKind) { prepared_ = vbs::toBoolean(args[0]); }
  vbs::Value getNamed(vbs::Args) { return vbs::Value::boolean(named_); }
  void putNamed(vbs::Args args, vbs::CallKind) { named_ = vbs::toBoolean(args[0]); }
  vbs::Value getName(vbs::Args) { return textValue(name_); }
  void putName(vbs::Args args, vbs::CallKind) { name_ = utf8Of(args[0]); }
  vbs::Value getState(vbs::Args) { return vbs::Value::longInt(0); }
  vbs::Value getProperties(vbs::Args) { return vbs::Value::object(properties_.get()); }

  const Services& services_;
  vbs::Ref<Connection> connection_;
  vbs::Ref<Parameters> parameters_ = vbs::make<Parameters>();
  vbs::Ref<Properties> properties_ = vbs::make<Properties>();
  std::string text_;
  std::string name_;
  std::int32_t type_ = kCmdUnknown;
  std::int32_t timeout_ = 30;
  bool prepared_ = false;
  bool named_ = false;
};

}  // namespace quorvane::ado

namespace quorvane {

extern const Component kAdoCommand;
extern const Component kAdoParameter;

}  // namespace quorvane
