#pragma once

#include <memory>

#include "jscript/world.h"

namespace quorvane::jscript {

/// An object or a function of a script, as others see it: its members by their names without regard
/// to letter case, a function through its default member, an array's items by their numbers.
class ScriptObject final : public vbs::Object {
 public:
  ScriptObject(std::shared_ptr<ScriptEngine::World> world, std::uint32_t key)
      : world_(std::move(world)), key_(key) {}

  std::string_view typeName() const override { return "JScriptTypeInfo"; }
  vbs::MemberId findMember(std::string_view lowerName) override;
  vbs::Value invoke(vbs::MemberId id, vbs::CallKind kind, vbs::Args args) override;
  std::unique_ptr<vbs::Enumerator> enumerate() override;

  const ScriptEngine::World* world() const { return world_.get(); }
  std::uint32_t key() const { return key_; }

 private:
  ~ScriptObject() override;

  std::shared_ptr<ScriptEngine::World> world_;
  const std::uint32_t key_;
};

/// Uses the property `key`, a text at the top, of the object below it; both go.
vbs::Value useProperty(ScriptEngine::World& world, duk_context* context, vbs::CallKind kind,
                       vbs::Args args);

}  // namespace quorvane::jscript
