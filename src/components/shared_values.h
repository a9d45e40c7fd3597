#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Values and objects that outlast the page that stored them: those that all pages share while the
/// server runs, or those of one session. Keys compare without regard to letter case; each counts
/// against the memory of the page that brings it. Pages run one at a time, so Lock and Unlock have
/// nothing to do.
class SharedValues final : public vbs::NativeObject<SharedValues> {
 public:
  /// `typeName` is what TypeName shows; it outlives the object.
  explicit SharedValues(std::string_view typeName) : typeName_(typeName) {}

  vbs::Value item(const vbs::Value& key) const;  ///< Empty when nothing is stored
  void setItem(const vbs::Value& key, const vbs::Value& value);
  void remove(const vbs::Value& key);
  void clear();
  bool empty() const { return values_.empty(); }
  std::size_t count() const { return values_.size(); }
  /// The key at a place, counted from 0, in its first spelling. The place must be there.
  vbs::Value keyAt(std::size_t place) const;

  std::string_view typeName() const override { return typeName_; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the keys
  void visitReferences(vbs::ReferenceVisitor& visitor) override;
  static std::span<const vbs::Member<SharedValues>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind);
  vbs::Value getContents(vbs::Args args);
  vbs::Value getCount(vbs::Args);
  vbs::Value callRemove(vbs::Args args);
  vbs::Value callRemoveAll(vbs::Args);
  vbs::Value callLock(vbs::Args);

  struct Kept {
    vbs::Value value;
    vbs::MemoryCharge charge;
    vbs::String name;  ///< of a key with characters beyond Windows-1252
  };
  using Values = KeyedCollection<Kept>;

  static vbs::Value nameOf(const Values::Entry& entry);

  std::string_view typeName_;
  Values values_;
};

}  // namespace quorvane
