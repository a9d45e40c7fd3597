#include "components/mail/cdo_fields.h"

#include <memory>

#include "components/arguments.h"
#include "components/mail/draft.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::mail {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

class CdoField final : public vbs::NativeObject<CdoField> {
 public:
  CdoField(vbs::Ref<CdoFields> fields, std::string name)
      : fields_(std::move(fields)), name_(std::move(name)) {}
  std::string_view typeName() const override { return "Field"; }

  static std::span<const vbs::Member<CdoField>> members() {
    static constexpr vbs::Member<CdoField> kMembers[] = {
        {"value", 0, 0, &CdoField::getValue, &CdoField::putValue, true},
        {"name", 0, 0, &CdoField::name},
    };
    return kMembers;
  }

 private:
  Value getValue(Args) { return fields_->value(name_); }
  void putValue(Args args, CallKind) { fields_->place(name_) = args[0].deref(); }
  Value name(Args) { return Value(std::string_view(name_)); }

  vbs::Ref<CdoFields> fields_;
  std::string name_;
};

}  // namespace

std::span<const vbs::Member<CdoFields>> CdoFields::members() {
  static constexpr vbs::Member<CdoFields> kMembers[] = {
      {"item", 1, 1, &CdoFields::getItem, &CdoFields::putItem, true},
      {"update", 0, 0, &CdoFields::update},
      {"resync", 0, 1, &CdoFields::update},
      {"count", 0, 0, &CdoFields::count},
  };
  return kMembers;
}

std::unique_ptr<vbs::Enumerator> CdoFields::enumerate() {
  std::vector<Value> list;
  for (const Named& named : values_) {
    list.push_back(Value::adopt(new CdoField(vbs::Ref<CdoFields>(this), named.first)));
  }
  return std::make_unique<vbs::ValueWalk>(std::move(list));
}

void CdoFields::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (Named& named : values_) visitor.value(named.second);
}

Value& CdoFields::place(const std::string& name) {
  for (Named& named : values_) {
    if (equalsNoCase(named.first, name)) return named.second;
  }
  if (values_.size() == kMostParts) vbs::throwError(vbs::ErrorCode::OutOfMemory);
  return values_.emplace_back(name, Value()).second;
}

Value CdoFields::value(std::string_view name) const {
  for (const Named& named : values_) {
    if (equalsNoCase(named.first, name)) return named.second;
  }
  return {};
}

std::string CdoFields::text(std::string_view name) const {
  const Value found = value(name);
  return found.isNull() ? std::string() : vbs::toString(found).utf8();
}

int CdoFields::number(std::string_view name, int otherwise) const {
  const Value found = value(name);
  if (found.isEmpty() || found.isNull()) return otherwise;
  if (found.isString() && found.asString().empty()) return otherwise;
  return vbs::toLong(found);
}

Value CdoFields::getItem(Args args) {
  return Value::adopt(new CdoField(vbs::Ref<CdoFields>(this), arguments::text(args, 0)));
}

void CdoFields::putItem(Args args, CallKind) {
  place(arguments::text(args, 0)) = vbs::plainValue(args[1]);
}

Value CdoFields::count(Args) {
  return Value::longInt(static_cast<std::int32_t>(values_.size()));
}

}  // namespace quorvane::mail
