#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/services.h"
#include "script/customary/page_program.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// What a page or global.asa declares by `<object runat=server id=... progid=...>`.
using Declarations = std::vector<StaticObject>;

/// Sets of declarations, each kept once and for good: compiled programs take for granted where in a
/// set a name stands, and know the set by its address.
class DeclarationSets {
 public:
  std::shared_ptr<const Declarations> keep(Declarations set);

 private:
  std::list<std::shared_ptr<const Declarations>> sets_;
};

/// The declared objects of one scope, each made when it is first used; what pages know as
/// `StaticObjects`.
class StaticObjects final : public vbs::NativeObject<StaticObjects> {
 public:
  /// `services` outlive the object.
  StaticObjects(const Services& services, std::shared_ptr<const Declarations> declared);

  const std::shared_ptr<const Declarations>& declared() const { return declared_; }
  vbs::Value object(std::size_t place);  ///< counted from 0; must be there
  bool holdsAny() const;

  std::string_view typeName() const override { return "StaticObjects"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the names
  void visitReferences(vbs::ReferenceVisitor& visitor) override;
  static std::span<const vbs::Member<StaticObjects>> members();

 private:
  std::size_t placeOf(const vbs::Value& nameOrNumber) const;
  vbs::Value getItem(vbs::Args args);
  vbs::Value getCount(vbs::Args);
  vbs::Value getKey(vbs::Args args);

  const Services& services_;
  std::shared_ptr<const Declarations> declared_;
  std::vector<vbs::Value> objects_;  ///< Empty: not made yet
  vbs::MemoryCharge charge_;
};

/// Declared objects as names of the script: published with its members as the global scope's.
class StaticNames final : public vbs::Object {
 public:
  /// `objects` gives those of the set, when one of them is used.
  using Objects = std::function<StaticObjects&()>;
  StaticNames(std::shared_ptr<const Declarations> declared, Objects objects)
      : declared_(std::move(declared)), objects_(std::move(objects)) {}
  explicit StaticNames(const vbs::Ref<StaticObjects>& objects);

  std::string_view typeName() const override { return "StaticNames"; }
  const void* shape() const override { return declared_.get(); }
  vbs::MemberId findMember(std::string_view lowerName) override;
  bool isAssignable(vbs::MemberId) const override { return false; }
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override;

 private:
  std::shared_ptr<const Declarations> declared_;
  Objects objects_;
};

}  // namespace quorvane::customary
