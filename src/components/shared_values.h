#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/keyed_collection.h"
#include "vbscript/values/object.h"

namespace quorvane {

/// Values and objects that all pages share while the server runs. Keys compare without regard to
/// letter case. Pages run one at a time, so Lock and Unlock have nothing to do.
class SharedValues final : public vbs::NativeObject<SharedValues> {
 public:
  vbs::Value item(const vbs::Value& key) const;  ///< Empty when nothing is stored
  void setItem(const vbs::Value& key, const vbs::Value& value);
  void clear();

  std::string_view typeName() const override { return "Application"; }
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

  KeyedCollection<vbs::Value> values_;
};

}  // namespace quorvane
