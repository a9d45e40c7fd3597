#include "components/dictionary.h"

#include <array>
#include <memory>
#include <vector>

#include "components/dictionary_table.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::ErrorCode;
using vbs::Value;

namespace {

enum CompareMode : std::int32_t { Binary = 0, Text = 1 };

class Dictionary : public vbs::NativeObject<Dictionary> {
 public:
  static std::span<const vbs::Member<Dictionary>> members();
  std::string_view typeName() const override { return "Dictionary"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override {
    return std::make_unique<vbs::ValueWalk>(listOf(&DictionaryTable::Entry::key));
  }
  void visitReferences(vbs::ReferenceVisitor& visitor) override;
  void dropReferences() override { table_.clear(); }
  Value* itemPlace(const Value& key) override {
    DictionaryTable::Entry* entry = table_.find(key);
    return entry ? &entry->item : nullptr;
  }

 private:
  /// A key that is read before it was written comes to stand in the dictionary.
  Value getItem(Args args) { return table_.findOrInsert(args[0]).item; }
  void putItem(Args args, CallKind) { table_.findOrInsert(args[0]).item = args[1].deref(); }

  Value exists(Args args) { return Value::boolean(table_.find(args[0].deref()) != nullptr); }
  Value add(Args args);
  Value remove(Args args);
  Value removeAll(Args) {
    table_.clear();
    return Value();
  }
  void putKey(Args args, CallKind);

  Value count(Args) { return Value::longInt(static_cast<std::int32_t>(table_.count())); }
  Value keys(Args) { return listOf(&DictionaryTable::Entry::key); }
  Value items(Args) { return listOf(&DictionaryTable::Entry::item); }
  Value getCompareMode(Args) { return Value::longInt(table_.ignoresCase() ? Text : Binary); }
  void putCompareMode(Args args, CallKind);

  Value listOf(Value DictionaryTable::Entry::*part) const;

  DictionaryTable table_;
};

std::span<const vbs::Member<Dictionary>> Dictionary::members() {
  using Row = vbs::Member<Dictionary>;
  static constexpr std::array kMembers = {
      Row{.name = "item",
          .minArgs = 1,
          .maxArgs = 1,
          .get = &Dictionary::getItem,
          .put = &Dictionary::putItem,
          .isDefault = true,
          .itemUse = vbs::ItemUse::Get},
      Row{.name = "exists",
          .minArgs = 1,
          .maxArgs = 1,
          .get = &Dictionary::exists,
          .itemUse = vbs::ItemUse::Exists},
      Row{"add", 2, 2, &Dictionary::add},
      Row{"count", 0, 0, &Dictionary::count},
      Row{"keys", 0, 0, &Dictionary::keys},
      Row{"items", 0, 0, &Dictionary::items},
      Row{"remove", 1, 1, &Dictionary::remove},
      Row{"removeall", 0, 0, &Dictionary::removeAll},
      Row{"key", 1, 1, nullptr, &Dictionary::putKey},
      Row{"comparemode", 0, 0, &Dictionary::getCompareMode, &Dictionary::putCompareMode},
  };
  return kMembers;
}

Value Dictionary::add(Args args) {
  const std::size_t before = table_.count();
  DictionaryTable::Entry& entry = table_.findOrInsert(args[0]);
  if (table_.count() == before) vbs::throwError(ErrorCode::KeyExists);
  entry.item = args[1].deref();
  return Value();
}

Value Dictionary::remove(Args args) {
  if (!table_.remove(args[0])) vbs::throwError(ErrorCode::ElementNotFound);
  return Value();
}

void Dictionary::putKey(Args args, CallKind) {
  DictionaryTable::Entry* entry = table_.find(args[0].deref());
  if (!entry) vbs::throwError(ErrorCode::ElementNotFound);
  DictionaryTable::Entry* taken = table_.find(args[1].deref());
  if (taken && taken != entry) vbs::throwError(ErrorCode::KeyExists);
  table_.changeKey(*entry, args[1]);
}

void Dictionary::putCompareMode(Args args, CallKind) {
  const std::int32_t mode = vbs::toLong(args[0]);
  if (table_.count() > 0 || mode < 0) vbs::throwError(ErrorCode::InvalidCall);
  table_.clear();
  table_.setIgnoresCase(mode != Binary);
}

Value Dictionary::listOf(Value DictionaryTable::Entry::*part) const {
  std::vector<Value> list;
  list.reserve(table_.count());
  for (const DictionaryTable::Entry& entry : table_.entries()) {
    if (entry.live) list.push_back(entry.*part);
  }
  return Value::array(vbs::ArrayRep::fromValues(std::move(list)));
}

void Dictionary::visitReferences(vbs::ReferenceVisitor& visitor) {
  for (DictionaryTable::Entry& entry : table_.entries()) {
    visitor.value(entry.key);
    visitor.value(entry.item);
  }
}

}  // namespace

const Component kDictionary{"scripting.dictionary",
                            [](const Services&) { return Value::adopt(new Dictionary()); }};

}  // namespace quorvane
