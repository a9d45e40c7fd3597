#include "script/sessions/session_contents.h"

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "script/script_values.h"
#include "script/sessions/aspSessionObj.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

std::unique_ptr<vbs::Enumerator> SessionContents::enumerate() {
  std::vector<vbs::Value> keys;
  for (const auto& entry : session_->values()) keys.emplace_back(std::string_view(entry.key));
  return std::make_unique<vbs::ValueWalk>(std::move(keys));
}

std::span<const vbs::Member<SessionContents>> SessionContents::members() {
  using Self = SessionContents;
  static constexpr std::array<vbs::Member<Self>, 4> kMembers{{
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"count", 0, 0, &Self::getCount},
      {"remove", 1, 1, &Self::callRemove},
      {"removeall", 0, 0, &Self::callRemoveAll},
  }};
  return kMembers;
}

vbs::Value SessionContents::getItem(vbs::Args args) {
  return vbs::Value(session_->Contents(script_values::text(args[0])));
}

void SessionContents::putItem(vbs::Args args, vbs::CallKind kind) {
  session_->setContents(script_values::text(args[0]), aspSessionObj::textToKeep(args[1], kind));
}

vbs::Value SessionContents::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(session_->values().size()));
}

vbs::Value SessionContents::callRemove(vbs::Args args) {
  session_->values().remove(script_values::text(args[0]));
  return {};
}

vbs::Value SessionContents::callRemoveAll(vbs::Args) {
  session_->values().clear();
  return {};
}

}  // namespace quorvane
