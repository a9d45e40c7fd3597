#pragma once

#include <string_view>

#include "components/ado/driver.h"
#include "components/ado/items.h"

namespace quorvane::ado {

/// Error: a failure that the database has reported.
class ErrorItem final : public vbs::NativeObject<ErrorItem> {
 public:
  explicit ErrorItem(DatabaseError error) : error_(std::move(error)) {}

  std::string name() const { return {}; }  ///< errors are found by number only
  std::string_view typeName() const override { return "Error"; }
  static std::span<const vbs::Member<ErrorItem>> members();

 private:
  vbs::Value getDescription(vbs::Args) { return textValue(error_.description); }
  vbs::Value getNumber(vbs::Args) { return vbs::Value::longInt(error_.number); }
  vbs::Value getSource(vbs::Args) { return textValue(error_.source); }
  vbs::Value getSqlState(vbs::Args) { return textValue(error_.sqlState); }
  vbs::Value getNativeError(vbs::Args) { return vbs::Value::longInt(error_.native); }
  vbs::Value getHelpFile(vbs::Args) { return textValue(""); }
  vbs::Value getHelpContext(vbs::Args) { return vbs::Value::longInt(0); }

  DatabaseError error_;
};

/// Errors: those of the last operation that failed.
class Errors final : public vbs::NativeObject<Errors> {
 public:
  void set(const DatabaseError& error);

  std::string_view typeName() const override { return "Errors"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return items_.walk(); }
  static std::span<const vbs::Member<Errors>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args) { return items_.count(); }
  vbs::Value callClear(vbs::Args);
  vbs::Value callRefresh(vbs::Args) { return {}; }

  Items<ErrorItem> items_;
};

}  // namespace quorvane::ado
