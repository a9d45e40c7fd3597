#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vbscript/values/object.h"

namespace quorvane::mail {

/// Values by long names, as configurations and messages have them. A name is there as soon as it
/// was asked for.
class CdoFields final : public vbs::NativeObject<CdoFields> {
 public:
  std::string_view typeName() const override { return "Fields"; }
  static std::span<const vbs::Member<CdoFields>> members();
  std::unique_ptr<vbs::Enumerator> enumerate() override;
  void visitReferences(vbs::ReferenceVisitor& visitor) override;
  void dropReferences() override { values_.clear(); }

  /// In any letter case; Empty when it is not there.
  vbs::Value value(std::string_view name) const;
  /// As text, and as a number where it is one.
  std::string text(std::string_view name) const;
  int number(std::string_view name, int otherwise) const;

  using Named = std::pair<std::string, vbs::Value>;
  const std::vector<Named>& values() const { return values_; }

  vbs::Value& place(const std::string& name);

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind);
  vbs::Value count(vbs::Args);
  vbs::Value update(vbs::Args) { return {}; }

  std::vector<Named> values_;
};

}  // namespace quorvane::mail
