#include "script/sessions/aspSessionObj.h"

#include <array>
#include <chrono>
#include <utility>

#include "script/script_values.h"
#include "script/sessions/session_contents.h"
#include "vbscript/values/convert.h"

namespace quorvane {

aspSessionObj::aspSessionObj(const Clock& clock) : clock_(clock), lastAccess_(clock.now()) {}

vbs::String aspSessionObj::Contents(std::string_view key) {
  prepare();
  const Kept* kept = values_.find(key);
  return kept ? kept->text : vbs::String();
}

void aspSessionObj::setContents(std::string key, vbs::String value) {
  if (abandoned_) return;
  prepare();
  store(std::move(key), std::move(value));
}

void aspSessionObj::store(std::string key, vbs::String value) {
  vbs::MemoryCharge charge(Values::bytesFor(key));
  values_.put(std::move(key), {std::move(value), std::move(charge)});
}

SharedValues* aspSessionObj::objects() const {
  return objects_.isObject() ? static_cast<SharedValues*>(objects_.asObject()) : nullptr;
}

vbs::Ref<SharedValues> aspSessionObj::makeObjects() {
  auto made = vbs::make<SharedValues>("Objects");
  if (backing_) made->setBacking(backing_->ofObjects());
  if (!abandoned_) objects_ = script_values::objectValue(made);
  return made;
}

bool aspSessionObj::holdsObjects() const {
  return objects() && !objects()->empty();
}

bool aspSessionObj::holdsAnything() const {
  return !values_.empty() || holdsObjects();
}

void aspSessionObj::Abandon() {
  abandoned_ = true;
  values_.clear();
  if (objects()) objects()->clear();
}

bool aspSessionObj::OutOfDate() const {
  return abandoned_ || lastAccess_ + std::chrono::minutes{timeout_} < clock_.now();
}

std::span<const vbs::Member<aspSessionObj>> aspSessionObj::members() {
  using Self = aspSessionObj;
  static constexpr std::array<vbs::Member<Self>, kGlobalMembers + 3> kMembers{{
      {"timeout", 0, 0, &Self::getTimeout, &Self::putTimeout},
      {"sessionid", 0, 0, &Self::getSessionID, &Self::putSessionID},
      {"contents", 0, 1, &Self::getContents, &Self::putContents, true},
      {"abandon", 0, 0, &Self::callAbandon},
      {"refresh", 0, 0, &Self::callRefresh},
      {"outofdate", 0, 0, &Self::callOutOfDate},
      // By the object's name only, since pages have variables of such names.
      {"objects", 0, 1, &Self::getObjects, &Self::putObjects},
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
  constexpr const char* kRefusal = "A session keeps texts only";
  if (kind == vbs::CallKind::Set) script_values::fail(vbs::ErrorCode::NoPropertyOrMethod, kRefusal);
  if (value.deref().isArray()) script_values::fail(vbs::ErrorCode::TypeMismatch, kRefusal);
  return vbs::toString(value);
}

/// Once abandoned, what a page stores is lost: it goes into a collection that nobody else sees.
vbs::Value aspSessionObj::getObjects(vbs::Args args) {
  if (!abandoned_) prepare();
  vbs::Value held = objects_.isObject() ? objects_ : script_values::objectValue(makeObjects());
  if (args.empty()) return held;
  return static_cast<SharedValues*>(held.asObject())->item(args[0]);
}

void aspSessionObj::putObjects(vbs::Args args, vbs::CallKind) {
  if (args.size() != 2) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  const vbs::Value held = getObjects({});
  static_cast<SharedValues*>(held.asObject())->setItem(args[0], args[1]);
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
