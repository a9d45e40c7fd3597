#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "script/customary/name_values.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// All values that one name has.
class ValueList final : public vbs::NativeObject<ValueList> {
 public:
  explicit ValueList(NameValues::Values values) : values_(std::move(values)) {}

  /// Joined by ", "; Empty when there is none.
  static vbs::Value joined(const NameValues::Values* values);

  std::string_view typeName() const override { return "IStringList"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  static std::span<const vbs::Member<ValueList>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args);

  NameValues::Values values_;
};

/// What a query or a form says, by name or by number; walking it gives the names.
class ValueCollection final : public vbs::NativeObject<ValueCollection> {
 public:
  /// `text` is what all of it stands in, for those who ask without a name.
  ValueCollection(std::shared_ptr<const NameValues> values, vbs::Value text)
      : values_(std::move(values)), text_(std::move(text)) {}

  std::string_view typeName() const override { return "IRequestDictionary"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  static std::span<const vbs::Member<ValueCollection>> members();

  vbs::Value getItem(vbs::Args args);
  vbs::Value getItemObject(vbs::Args args);

 private:
  const NameValues::Values* find(const vbs::Value& nameOrNumber) const;
  vbs::Value getCount(vbs::Args);
  vbs::Value getKey(vbs::Args args);

  std::shared_ptr<const NameValues> values_;
  vbs::Value text_;
};

/// One cookie that came: a text, or texts under keys of its own.
class CookieValue final : public vbs::NativeObject<CookieValue> {
 public:
  /// As it came, not decoded.
  CookieValue(std::string_view text, std::int32_t codePage);

  vbs::Value text() const { return vbs::Value(text_); }

  std::string_view typeName() const override { return "IReadCookie"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the keys
  static std::span<const vbs::Member<CookieValue>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  vbs::Value getHasKeys(vbs::Args);
  vbs::Value getCount(vbs::Args);
  vbs::Value getKey(vbs::Args args);

  vbs::String text_;
  NameValues keys_;
};

/// The names as a walk over them gives them.
std::unique_ptr<vbs::Enumerator> walkNames(const NameValues& values);

}  // namespace quorvane::customary
