#include "components/ado/command.h"

#include "components/ado/recordset.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

std::span<const vbs::Member<Parameter>> Parameter::members() {
  using Self = Parameter;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"value", 0, 0, &Self::getValue, &Self::putValue, true},
      {"name", 0, 0, &Self::getName, &Self::putName},
      {"type", 0, 0, &Self::getType, &Self::putType},
      {"direction", 0, 0, &Self::getDirection, &Self::putDirection},
      {"size", 0, 0, &Self::getSize, &Self::putSize},
      {"precision", 0, 0, &Self::getPrecision, &Self::putPrecision},
      {"numericscale", 0, 0, &Self::getScale, &Self::putScale},
      {"attributes", 0, 0, &Self::getAttributes, &Self::putAttributes},
      {"appendchunk", 1, 1, &Self::callAppendChunk},
  };
  return kMembers;
}

void Parameter::describe(Args args) {
  if (isGiven(args, 0)) name_ = utf8Of(args[0]);
  type_ = arguments::number(args, 1, type_);
  direction_ = arguments::number(args, 2, direction_);
  size_ = arguments::number(args, 3, size_);
  if (isGiven(args, 4)) setValue(args[4]);
}

void Parameter::setValue(const Value& value) {
  value_ = vbs::plainValue(value);
}

Value Parameter::bound() const {
  if (value_.isEmpty() || value_.isNull()) return Value::null();
  Column column;
  column.type = static_cast<DataType>(type_);
  column.size = INT32_MAX;
  return fittingValue(value_, column);
}

Value Parameter::callAppendChunk(Args args) {
  const Value piece = vbs::plainValue(args[0]);
  if (piece.isArray() && value_.isArray()) {
    const std::string whole =
        std::string(value_.asArray()->bytes.raw()) + std::string(piece.asArray()->bytes.raw());
    value_ = Value::array(vbs::ArrayRep::fromBytes(whole));
  } else if (piece.isString() && value_.isString()) {
    value_ = vbs::String::joined(value_.asString(), piece.asString());
  } else {
    value_ = piece;
  }
  return {};
}

std::span<const vbs::Member<Parameters>> Parameters::members() {
  using Self = Parameters;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"append", 1, 1, &Self::callAppend},
      {"count", 0, 0, &Self::getCount},
      {"delete", 1, 1, &Self::callDelete},
      {"refresh", 0, 0, &Self::callRefresh},
  };
  return kMembers;
}

Parameter& Parameters::item(Args args) {
  Parameter* parameter = items_.find(args[0]);
  if (!parameter) fail(AdoError::ItemNotFound, "Parameters");
  return *parameter;
}

Value Parameters::callAppend(Args args) {
  auto* parameter = objectOf<Parameter>(args[0]);
  if (!parameter) fail(AdoError::DataConversion, "Parameters");
  items_.all().emplace_back(parameter);
  return {};
}

Value Parameters::callDelete(Args args) {
  const std::size_t place = items_.placeOf(args[0]);
  if (place == items_.size()) fail(AdoError::ItemNotFound, "Parameters");
  items_.all().erase(items_.all().begin() + static_cast<std::ptrdiff_t>(place));
  return {};
}

std::span<const vbs::Member<CommandObject>> CommandObject::members() {
  using Self = CommandObject;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"parameters", 0, 1, &Self::getParameters, &Self::putParameter, true},
      {"activeconnection", 0, 0, &Self::getActiveConnection, &Self::putActiveConnection},
      {"commandtext", 0, 0, &Self::getText, &Self::putText},
      {"commandtype", 0, 0, &Self::getType, &Self::putType},
      {"commandtimeout", 0, 0, &Self::getTimeout, &Self::putTimeout},
      {"prepared", 0, 0, &Self::getPrepared, &Self::putPrepared},
      {"namedparameters", 0, 0, &Self::getNamed, &Self::putNamed},
      {"name", 0, 0, &Self::getName, &Self::putName},
      {"state", 0, 0, &Self::getState},
      {"properties", 0, 0, &Self::getProperties},
      {"execute", 0, 3, &Self::callExecute},
      {"createparameter", 0, 5, &Self::callCreateParameter},
      {"cancel", 0, 0, &Self::callCancel},
  };
  return kMembers;
}

Command CommandObject::command(const Value& values, std::int32_t options) {
  if (!connection_ || !connection_->isOpen()) fail(AdoError::InvalidConnection, "Command");
  Command command;
  command.timeout = timeout_;
  for (const auto& parameter : parameters_->items().all()) {
    if (parameter->direction() == kReturn || parameter->direction() == kOutput) continue;
    command.parameters.push_back(parameter->bound());
    command.parameterNames.push_back(parameter->name());
  }
  const Value& given = values.deref();
  for (std::size_t i = 0; given.isArray() && i < given.asArray()->count; ++i) {
    const Value value = vbs::plainValue(given.asArray()->element(i));
    if (i < command.parameters.size()) {
      if (!value.isEmpty()) command.parameters[i] = value;
    } else {
      command.parameters.push_back(value);
    }
  }
  command.text = connection_->commandText(text_, options == kCmdUnspecified ? type_ : options,
                                          command.parameters.size());
  return command;
}

Value CommandObject::callExecute(Args args) {
  const std::int32_t options = arguments::number(args, 2, kCmdUnspecified);
  const bool noRecords = options != kCmdUnspecified && (options & kExecuteNoRecords) != 0;
  const std::int32_t type = options == kCmdUnspecified ? options : options & ~kExecuteNoRecords;
  const Command toRun =
      command(isGiven(args, 1) ? args[1] : Value(), type == 0 ? kCmdUnspecified : type);
  std::int64_t affected = 0;
  const vbs::Ref<Recordset> recordset = executeCommand(connection_, toRun, noRecords, affected);
  if (isGiven(args, 0)) args[0].deref() = Value::longInt(static_cast<std::int32_t>(affected));
  return noRecords ? Value::nothing() : Value::object(recordset.get());
}

Value CommandObject::callCreateParameter(Args args) {
  const auto parameter = vbs::make<Parameter>();
  parameter->describe(args);
  return Value::object(parameter.get());
}

Value CommandObject::getParameters(Args args) {
  return args.empty() ? Value::object(parameters_.get()) : parameters_->getItem(args);
}

void CommandObject::putParameter(Args args, CallKind kind) {
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  parameters_->putItem(args, kind);
}

Value CommandObject::getActiveConnection(Args) {
  return Value::object(connection_.get());
}

void CommandObject::putActiveConnection(Args args, CallKind) {
  connection_ = connectionOf(args[0], services_);
}

}  // namespace quorvane::ado

namespace quorvane {

const Component kAdoCommand{"adodb.command", [](const Services& services) {
                              return vbs::Value::adopt(new ado::CommandObject(services));
                            }};
const Component kAdoParameter{
    "adodb.parameter", [](const Services&) { return vbs::Value::adopt(new ado::Parameter()); }};

}  // namespace quorvane
