#include "components/ado/field.h"

namespace quorvane::ado {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

enum FieldAttribute : std::int32_t {
  kUpdatable = 4,
  kUnknownUpdatable = 8,
  kFixed = 16,
  kIsNullable = 32,
  kMayBeNull = 64,
  kLong = 128,
};

bool isLongType(DataType type) {
  return type == DataType::LongVarWChar || type == DataType::LongVarBinary ||
         type == DataType::LongVarChar;
}

bool isVariable(DataType type) {
  return isLongType(type) || type == DataType::VarWChar || type == DataType::VarChar ||
         type == DataType::VarBinary;
}

}  // namespace

std::span<const vbs::Member<Field>> Field::members() {
  using Self = Field;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"value", 0, 0, &Self::getValue, &Self::putValue, true},
      {"name", 0, 0, &Self::getName},
      {"type", 0, 0, &Self::getType},
      {"definedsize", 0, 0, &Self::getDefinedSize},
      {"actualsize", 0, 0, &Self::getActualSize},
      {"precision", 0, 0, &Self::getPrecision},
      {"numericscale", 0, 0, &Self::getScale},
      {"attributes", 0, 0, &Self::getAttributes},
      {"originalvalue", 0, 0, &Self::getOriginalValue},
      {"underlyingvalue", 0, 0, &Self::getOriginalValue},
      {"properties", 0, 0, &Self::getProperties},
      {"appendchunk", 1, 1, &Self::callAppendChunk},
      {"getchunk", 1, 1, &Self::callGetChunk},
  };
  return kMembers;
}

Field* Field::makeKept(std::size_t column) {
  auto* field = new Field(nullptr, column);
  field->kept_ = true;
  field->references_ = 0;
  field->idle_ = true;
  return field;
}

vbs::Ref<Field> Field::use(Recordset& recordset) {
  if (!idle_ && references() == 0) return {};
  if (std::exchange(idle_, false)) recordset_ = vbs::Ref<Recordset>(&recordset);
  return vbs::Ref<Field>(this);
}

void Field::giveUp() {
  kept_ = false;
  if (idle_) delete this;
}

/// Letting the recordset go may end it, and this with it.
void Field::lastRelease() {
  if (!kept_) {
    delete this;
    return;
  }
  idle_ = true;
  const vbs::Ref<Recordset> last = std::move(recordset_);
}

const Column& Field::column() const {
  const auto& columns = recordset_->columns();
  if (column_ >= columns.size()) fail(AdoError::ItemNotFound, "Field");
  return columns[column_];
}

Value Field::getType(Args) {
  return Value::longInt(static_cast<std::int32_t>(column().type));
}

Value Field::getActualSize(Args) {
  const Value value = recordset_->fieldValue(column_);
  if (value.isNull()) return Value::longInt(0);
  if (value.isString()) {
    return Value::longInt(static_cast<std::int32_t>(value.asString().byteLength()));
  }
  if (value.isArray()) {
    return Value::longInt(static_cast<std::int32_t>(value.asArray()->bytes.raw().size()));
  }
  return Value::longInt(column().size);
}

Value Field::getAttributes(Args) {
  std::int32_t bits = kMayBeNull;
  if (column().nullable) bits |= kIsNullable;
  if (!column().table.empty() && !column().autonumber) bits |= kUnknownUpdatable;
  if (isLongType(column().type)) bits |= kLong;
  if (!isVariable(column().type)) bits |= kFixed;
  return Value::longInt(bits);
}

Value Field::getProperties(Args) {
  const auto properties = vbs::make<Properties>();
  properties->set("BASECOLUMNNAME", textValue(column().column));
  properties->set("BASETABLENAME", textValue(column().table));
  properties->set("ISAUTOINCREMENT", Value::boolean(column().autonumber));
  properties->set("KEYCOLUMN", Value::boolean(column().key));
  properties->set("ISCASESENSITIVE", Value::boolean(false));
  properties->set("OPTIMIZE", Value::boolean(false));
  return Value::object(properties.get());
}

/// What was given and taken in pieces is of one row.
void Field::comeToRow() {
  if (std::exchange(visit_, recordset_->visit()) == recordset_->visit()) return;
  chunk_ = 0;
  appending_ = false;
}

/// The first piece replaces what is there.
Value Field::callAppendChunk(Args args) {
  comeToRow();
  const Value held = appending_ ? recordset_->fieldValue(column_) : Value::null();
  const Value piece = held.isArray() ? fittingValue(args[0], recordset_->columns()[column_])
                                     : vbs::plainValue(args[0]);
  appending_ = true;
  if (held.isArray() && piece.isArray()) {
    const std::string whole =
        std::string(held.asArray()->bytes.raw()) + std::string(piece.asArray()->bytes.raw());
    recordset_->setFieldValue(column_, Value::array(vbs::ArrayRep::fromBytes(whole)));
  } else if (held.isString()) {
    recordset_->setFieldValue(column_, vbs::String::joined(held.asString(), vbs::toString(piece)));
  } else {
    recordset_->setFieldValue(column_, piece);
  }
  return {};
}

Value Field::callGetChunk(Args args) {
  const std::int32_t wanted = vbs::toLong(args[0]);
  if (wanted < 0) fail(AdoError::InvalidArgument, "Field");
  comeToRow();
  Value value = recordset_->fieldValue(column_);
  const auto length = static_cast<std::size_t>(wanted);
  if (value.isNull()) return value;
  if (value.isArray()) {
    const std::string_view bytes = value.asArray()->bytes.raw();
    if (chunk_ >= bytes.size()) return Value::null();
    const std::string_view piece = bytes.substr(chunk_, length);
    chunk_ += piece.size();
    return Value::array(vbs::ArrayRep::fromBytes(piece));
  }
  const vbs::String text = vbs::toString(value);
  if (chunk_ >= text.length()) return Value::null();
  const vbs::String piece = text.substr(chunk_, length);
  chunk_ += piece.length();
  return piece;
}

std::span<const vbs::Member<Fields>> Fields::members() {
  using Self = Fields;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"count", 0, 0, &Self::getCount},
      {"append", 2, 5, &Self::callAppend},
      {"delete", 1, 1, &Self::callDelete},
      {"refresh", 0, 0, &Self::callNothing},
      {"update", 0, 0, &Self::callNothing},
      {"cancelupdate", 0, 0, &Self::callNothing},
  };
  return kMembers;
}

std::unique_ptr<vbs::Enumerator> Fields::enumerate() {
  std::vector<Value> fields;
  for (std::size_t i = 0; i < recordset_->columns().size(); ++i) {
    fields.push_back(Value::object(recordset_->field(i).get()));
  }
  return std::make_unique<vbs::ValueWalk>(std::move(fields));
}

Value Fields::getItem(Args args) {
  return Value::object(recordset_->field(recordset_->columnOf(args[0])).get());
}

void Fields::putItem(Args args, CallKind) {
  recordset_->setFieldValue(recordset_->columnOf(args[0]), args[1]);
}

Value Fields::getCount(Args) {
  return Value::longInt(static_cast<std::int32_t>(recordset_->columns().size()));
}

/// name, type, defined size, attributes, value
Value Fields::callAppend(Args args) {
  Column column;
  column.name = utf8Of(args[0]);
  column.type = static_cast<DataType>(vbs::toLong(args[1]));
  column.size = arguments::number(args, 2, 0);
  if (column.size == 0) column.size = 255;
  recordset_->appendColumn(std::move(column));
  return {};
}

Value Fields::callDelete(Args args) {
  recordset_->removeColumn(recordset_->columnOf(args[0]));
  return {};
}

}  // namespace quorvane::ado
