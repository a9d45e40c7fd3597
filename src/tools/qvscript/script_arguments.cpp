#include "qvscript/script_arguments.h"

#include "vbscript/syntax/name_table.h"
#include "vbscript/values/convert.h"

namespace quorvane::qvscript {

using vbs::Args;
using vbs::Member;
using vbs::Value;

namespace {

/// Hands out texts that it owns itself.
class TextEnumerator : public vbs::Enumerator {
 public:
  explicit TextEnumerator(std::vector<std::string> texts) : texts_(std::move(texts)) {}

  bool next(Value& item) override {
    if (at_ == texts_.size()) return false;
    item = Value(std::string_view(texts_[at_++]));
    return true;
  }

 private:
  std::vector<std::string> texts_;
  std::size_t at_ = 0;
};

Value countOf(std::size_t count) {
  return Value::longInt(static_cast<std::int32_t>(count));
}

NamedArguments::Named splitNamed(std::string_view word) {
  word.remove_prefix(1);
  const auto colon = word.find(':');
  if (colon != word.npos) {
    return {std::string(word.substr(0, colon)), Value(word.substr(colon + 1))};
  }
  if (word.ends_with('+') || word.ends_with('-')) {
    return {std::string(word.substr(0, word.size() - 1)), Value::boolean(word.ends_with('+'))};
  }
  return {std::string(word), Value()};
}

bool isNamed(std::string_view word) {
  return word.size() > 1 && word.front() == '/';
}

}  // namespace

std::span<const Member<UnnamedArguments>> UnnamedArguments::members() {
  using Self = UnnamedArguments;
  static constexpr Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::item, nullptr, true},
      {"count", 0, 0, &Self::count},
      {"length", 0, 0, &Self::count},
  };
  return kMembers;
}

Value UnnamedArguments::count(Args) {
  return countOf(words_.size());
}

Value UnnamedArguments::item(Args args) {
  const std::int32_t index = vbs::toLong(args[0]);
  if (index < 0 || static_cast<std::size_t>(index) >= words_.size()) {
    vbs::throwError(vbs::ErrorCode::SubscriptOutOfRange);
  }
  return Value(std::string_view(words_[static_cast<std::size_t>(index)]));
}

std::unique_ptr<vbs::Enumerator> UnnamedArguments::enumerate() {
  return std::make_unique<TextEnumerator>(words_);
}

std::span<const Member<NamedArguments>> NamedArguments::members() {
  using Self = NamedArguments;
  static constexpr Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::item, nullptr, true},
      {"exists", 1, 1, &Self::exists},
      {"count", 0, 0, &Self::count},
      {"length", 0, 0, &Self::count},
  };
  return kMembers;
}

const NamedArguments::Named* NamedArguments::find(const Value& name) const {
  const std::string wanted = vbs::foldName(vbs::toString(name).narrow());
  for (const Named& word : words_) {
    if (vbs::foldName(word.name) == wanted) return &word;
  }
  return nullptr;
}

Value NamedArguments::count(Args) {
  return countOf(words_.size());
}

Value NamedArguments::exists(Args args) {
  return Value::boolean(find(args[0]) != nullptr);
}

Value NamedArguments::item(Args args) {
  const Named* word = find(args[0]);
  return word ? word->value : Value();
}

std::unique_ptr<vbs::Enumerator> NamedArguments::enumerate() {
  std::vector<std::string> names;
  for (const Named& word : words_) names.push_back(word.name);
  return std::make_unique<TextEnumerator>(std::move(names));
}

ScriptArguments::ScriptArguments(const std::vector<std::string>& words)
    : all_(vbs::make<UnnamedArguments>(words)) {
  std::vector<std::string> unnamed;
  std::vector<NamedArguments::Named> named;
  for (const std::string& word : words) {
    if (isNamed(word)) {
      named.push_back(splitNamed(word));
    } else {
      unnamed.push_back(word);
    }
  }
  unnamed_ = vbs::make<UnnamedArguments>(std::move(unnamed));
  named_ = vbs::make<NamedArguments>(std::move(named));
}

std::span<const Member<ScriptArguments>> ScriptArguments::members() {
  using Self = ScriptArguments;
  static constexpr Member<Self> kMembers[] = {
      {"item", 1, 1, &Self::item, nullptr, true},
      {"count", 0, 0, &Self::count},
      {"length", 0, 0, &Self::count},
      {"named", 0, 0, &Self::named},
      {"unnamed", 0, 0, &Self::unnamed},
  };
  return kMembers;
}

Value ScriptArguments::count(Args args) {
  return all_->invoke(all_->findMember("count"), vbs::CallKind::Get, args);
}

Value ScriptArguments::item(Args args) {
  return all_->invoke(vbs::kDefaultMember, vbs::CallKind::Get, args);
}

}  // namespace quorvane::qvscript
