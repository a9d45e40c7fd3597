#pragma once

#include <string_view>

#include "components/ado/recordset.h"

namespace quorvane::ado {

/// Field: a column of a recordset, at whatever row that is.
class Field final : public vbs::NativeObject<Field> {
 public:
  Field(Recordset* recordset, std::size_t column) : recordset_(recordset), column_(column) {}

  /// One that its recordset keeps for use again and again. While nobody refers to it, it does not
  /// refer to the recordset either.
  static Field* makeKept(std::size_t column);
  /// The field, for a reference more; null while it is on its way out.
  vbs::Ref<Field> use(Recordset& recordset);
  /// The recordset keeps it no longer.
  void giveUp();

  std::string_view typeName() const override { return "Field"; }
  static std::span<const vbs::Member<Field>> members();

 private:
  const Column& column() const;
  vbs::Value getValue(vbs::Args) { return recordset_->fieldValue(column_); }
  void putValue(vbs::Args args, vbs::CallKind) { recordset_->setFieldValue(column_, args[0]); }
  vbs::Value getName(vbs::Args) { return textValue(column().name); }
  vbs::Value getType(vbs::Args);
  vbs::Value getDefinedSize(vbs::Args) { return vbs::Value::longInt(column().size); }
  vbs::Value getActualSize(vbs::Args);
  vbs::Value getPrecision(vbs::Args) { return vbs::Value::longInt(column().precision); }
  vbs::Value getScale(vbs::Args) { return vbs::Value::longInt(column().scale); }
  vbs::Value getAttributes(vbs::Args);
  vbs::Value getOriginalValue(vbs::Args) { return recordset_->originalValue(column_); }
  vbs::Value getProperties(vbs::Args);
  vbs::Value callAppendChunk(vbs::Args args);
  vbs::Value callGetChunk(vbs::Args args);

  void lastRelease() override;

  vbs::Ref<Recordset> recordset_;
  std::size_t column_;
  void comeToRow();

  std::size_t chunk_ = 0;  ///< what GetChunk has given of the row
  bool appending_ = false;
  std::uint32_t visit_ = 0;  ///< of the recordset to a row, to which these two belong
  bool kept_ = false;
  bool idle_ = false;  ///< kept, and without a reference
};

/// Fields of a recordset.
class Fields final : public vbs::NativeObject<Fields> {
 public:
  explicit Fields(Recordset* recordset) : recordset_(recordset) {}

  std::string_view typeName() const override { return "Fields"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  static std::span<const vbs::Member<Fields>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind);
  vbs::Value getCount(vbs::Args);
  vbs::Value callAppend(vbs::Args args);
  vbs::Value callDelete(vbs::Args args);
  vbs::Value callNothing(vbs::Args) { return {}; }

  vbs::Ref<Recordset> recordset_;
};

}  // namespace quorvane::ado
