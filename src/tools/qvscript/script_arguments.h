#pragma once

#include <string>
#include <vector>

#include "vbscript/values/object.h"

/// The words behind the script's name, as WScript.Arguments and its two views show them.
namespace quorvane::qvscript {

/// Words by position: all of them, or those that are not named.
class UnnamedArguments : public vbs::NativeObject<UnnamedArguments> {
 public:
  explicit UnnamedArguments(std::vector<std::string> words) : words_(std::move(words)) {}

  static std::span<const vbs::Member<UnnamedArguments>> members();
  std::string_view typeName() const override { return "IUnnamedArguments"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;

 private:
  vbs::Value count(vbs::Args);
  vbs::Value item(vbs::Args args);

  std::vector<std::string> words_;
};

/// Words of the form /name, /name:text, /name+ and /name-, looked up by name in any letter case.
class NamedArguments : public vbs::NativeObject<NamedArguments> {
 public:
  struct Named {
    std::string name;
    vbs::Value value;  ///< Empty without a text
  };
  explicit NamedArguments(std::vector<Named> words) : words_(std::move(words)) {}

  static std::span<const vbs::Member<NamedArguments>> members();
  std::string_view typeName() const override { return "IWSHNamed"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;

 private:
  const Named* find(const vbs::Value& name) const;
  vbs::Value count(vbs::Args);
  vbs::Value exists(vbs::Args args);
  vbs::Value item(vbs::Args args);

  std::vector<Named> words_;
};

class ScriptArguments : public vbs::NativeObject<ScriptArguments> {
 public:
  explicit ScriptArguments(const std::vector<std::string>& words);

  static std::span<const vbs::Member<ScriptArguments>> members();
  std::string_view typeName() const override { return "IWSHArguments"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override { return all_->enumerate(); }

 private:
  vbs::Value count(vbs::Args args);
  vbs::Value item(vbs::Args args);
  vbs::Value named(vbs::Args) { return vbs::Value::object(named_.get()); }
  vbs::Value unnamed(vbs::Args) { return vbs::Value::object(unnamed_.get()); }

  vbs::Ref<UnnamedArguments> all_;
  vbs::Ref<UnnamedArguments> unnamed_;
  vbs::Ref<NamedArguments> named_;
};

}  // namespace quorvane::qvscript
