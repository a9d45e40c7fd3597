#include "script/aspSessionObj.h"

#include <array>
#include <chrono>
#include <utility>

#include "script/script_values.h"
#include "script/session_contents.h"
#include "vbscript/convert.h"

aspSessionObj::aspSessionObj(const Clock& clock) : clock_(clock), lastAccess_(clock.now()) {}

vbs::String aspSessionObj::Contents(std::string_view key) const {
  const vbs::String* value = values_.find(key);
  return value ? *value : vbs::String();
}

void aspSessionObj::setContents(std::string key, vbs::String value) {
  if (!abandoned_) values_.put(std::move(key), std::move(value));
}

void aspSessionObj::Abandon() {
  abandoned_ = true;
  values_.clear();
}

bool aspSessionObj::OutOfDate() const {
  return abandoned_ || lastAccess_ + std::chrono::minutes{timeout_} < clock_.now();
}

std::span<const vbs::Member<aspSessionObj>> aspSessionObj::members() {
  using Self = aspSessionObj;
  static constexpr std::array<vbs::Member<Self>, kGlobalMembers> kMembers{{
      {"timeout", 0, 0, &Self::getTimeout, &Self::putTimeout},
      {"sessionid", 0, 0, &Self::getSessionID, &Self::putSessionID},
      {"contents", 0, 1, &Self::getContents, &Self::putContents, true},
      {"abandon", 0, 0, &Self::callAbandon},
      {"refresh", 0, 0, &Self::callRefresh},
      {"outofdate", 0, 0, &Self::callOutOfDate},
  }};
  return kMembers;
}

vbs::Value aspSessionObj::getTimeout(vbs::Args) {
  return vbs::Value::integer(timeout_);
}

void aspSessionObj::putTimeout(vbs::Args args, vbs::CallKind) {
  timeout_ = vbs::toInteger(args.back());
}

vbs::Value aspSessionObj::getSessionID(vbs::Args) {
  return vbs::Value::longInt(sessionID_);
}

void aspSessionObj::putSessionID(vbs::Args args, vbs::CallKind) {
  sessionID_ = vbs::toLong(args.back());
}

vbs::Value aspSessionObj::getContents(vbs::Args args) {
  if (args.empty()) {
    return script_values::objectValue(vbs::make<SessionContents>(vbs::Ref<aspSessionObj>(this)));
  }
  return vbs::Value(Contents(script_values::text(args[0])));
}

void aspSessionObj::putContents(vbs::Args args, vbs::CallKind kind) {
  if (kind == vbs::CallKind::Set) vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  setContents(script_values::text(args[0]), vbs::toString(args[1]));
}

vbs::Value aspSessionObj::callAbandon(vbs::Args) {
  Abandon();
  return {};
}

vbs::Value aspSessionObj::callRefresh(vbs::Args) {
  Refresh();
  return {};
}

vbs::Value aspSessionObj::callOutOfDate(vbs::Args) {
  return vbs::Value::boolean(OutOfDate());
}
