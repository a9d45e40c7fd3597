#pragma once

#include <string_view>

#include "vbscript/values/object.h"

namespace quorvane {

class aspSessionObj;

/// `Session.Contents` without a key: the session's values as a collection.
class SessionContents final : public vbs::NativeObject<SessionContents> {
 public:
  explicit SessionContents(vbs::Ref<aspSessionObj> session) : session_(std::move(session)) {}

  std::string_view typeName() const override { return "Contents"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the keys
  static std::span<const vbs::Member<SessionContents>> members();

 private:
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind kind);
  vbs::Value getCount(vbs::Args);
  vbs::Value callRemove(vbs::Args args);
  vbs::Value callRemoveAll(vbs::Args);

  vbs::Ref<aspSessionObj> session_;
};

}  // namespace quorvane
