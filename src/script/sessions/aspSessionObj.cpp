#include "script/sessions/aspSessionObj.h"

#include <array>
#include <chrono>
#include <utility>

#include "script/script_values.h"
#include "script/sessions/session_contents.h"
#include "vbscript/values/convert.h"

namespace quorvane {

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
  static constexpr std::array<vbs::Member<Self>, kGlobalMembers + 2> kMembers{{
      {"timeout", 0, 0, &Self::getTimeout, &Self::putTimeout},
      {"sessionid", 0, 0, &Self::getSessionID, &Self::putSessionID},
      {"contents", 0, 1, &Self::getContents, &Self::putContents, true},
      {"abandon", 0, 0, &Self::callAbandon},
      {"refresh", 0, 0, &Self::callRefresh},
      {"outofdate", 0, 0, &Self::callOutOfDate},
      // For pages written for other servers, by the object's name only.
      {"lcid", 0, 0, &Self::getLcid, &Self::putLcid},
      {"codepage", 0, 0, &Self::getCodePage, &Self::putCodePage},
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
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  setContents(script_values::text(args[0]), textToKeep(args[1], kind));
}

vbs::String aspSessionObj::textToKeep(const vbs::Value& value, vbs::CallKind kind) {
  const auto refuse = [](vbs::ErrorCode code) {
    throw vbs::ScriptError{static_cast<std::int32_t>(code), "A session keeps texts only", {}, {}};
  };
  if (kind == vbs::CallKind::Set) refuse(vbs::ErrorCode::NoPropertyOrMethod);
  if (value.deref().isArray()) refuse(vbs::ErrorCode::TypeMismatch);
  return vbs::toString(value);
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

vbs::Value aspSessionObj::getLcid(vbs::Args) {
  return vbs::Value::longInt(lcid_);
}

void aspSessionObj::putLcid(vbs::Args args, vbs::CallKind) {
  const std::int32_t id = vbs::toLong(args.back());
  script_values::useLocale(id);
  lcid_ = id;
}

vbs::Value aspSessionObj::getCodePage(vbs::Args) {
  return vbs::Value::longInt(codePage_);
}

void aspSessionObj::putCodePage(vbs::Args args, vbs::CallKind) {
  codePage_ = vbs::toLong(args.back());
}

}  // namespace quorvane
