#include "script/customary/session_object.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "script/customary/code_page.h"
#include "script/customary/contents_object.h"
#include "script/script_values.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/text_locale.h"

namespace quorvane::customary {

namespace {

/// Minutes that a session may be idle.
constexpr std::int32_t kLongestTimeout = 24 * 60;

}  // namespace

void SessionObject::detach() {
  page_ = nullptr;
  begin_ = {};
}

Session& SessionObject::begin() {
  page();  // or the session is out of reach
  if (refused_) vbs::throwError(vbs::ErrorCode::CannotPerform, "Session");
  if (!session_) {
    session_ = begin_();
    isNew_ = true;
  }
  return *session_;
}

Page& SessionObject::page() const {
  if (!page_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *page_;
}

std::unique_ptr<vbs::Enumerator> SessionObject::enumerate() {
  return begin().contents->enumerate();
}

std::span<const vbs::Member<SessionObject>> SessionObject::members() {
  using Self = SessionObject;
  static constexpr std::array<vbs::Member<Self>, 8> kMembers{{
      {"value", 1, 1, &Self::getValue, &Self::putValue, true},
      {"contents", 0, 1, &Self::getContents, &Self::putContents},
      {"staticobjects", 0, 1, &Self::getStaticObjects},
      {"sessionid", 0, 0, &Self::getSessionID},
      {"timeout", 0, 0, &Self::getTimeout, &Self::putTimeout},
      {"lcid", 0, 0, &Self::getLcid, &Self::putLcid},
      {"codepage", 0, 0, &Self::getCodePage, &Self::putCodePage},
      {"abandon", 0, 0, &Self::callAbandon},
  }};
  return kMembers;
}

vbs::Value SessionObject::getValue(vbs::Args args) {
  return begin().contents->item(args[0]);
}

void SessionObject::putValue(vbs::Args args, vbs::CallKind kind) {
  begin().contents->setItem(args[0], keptValue(args[1], kind));
}

vbs::Value SessionObject::getContents(vbs::Args args) {
  return itemOrAll(vbs::make<ContentsObject>(begin().contents), args);
}

void SessionObject::putContents(vbs::Args args, vbs::CallKind kind) {
  vbs::make<ContentsObject>(begin().contents)->invoke(vbs::kDefaultMember, kind, args);
}

vbs::Value SessionObject::getStaticObjects(vbs::Args args) {
  return itemOrAll(begin().objects, args);
}

vbs::Value SessionObject::getSessionID(vbs::Args) {
  return vbs::Value::longInt(begin().number);
}

vbs::Value SessionObject::getTimeout(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(begin().timeout.count()));
}

void SessionObject::putTimeout(vbs::Args args, vbs::CallKind) {
  begin().timeout = std::chrono::minutes{std::clamp(vbs::toLong(args.back()), 1, kLongestTimeout)};
}

vbs::Value SessionObject::getLcid(vbs::Args) {
  return vbs::Value::longInt(vbs::activeLocale().id);
}

void SessionObject::putLcid(vbs::Args args, vbs::CallKind) {
  const std::int32_t id = vbs::toLong(args.back());
  Session& session = begin();
  script_values::useLocale(id);
  session.locale = id;
}

vbs::Value SessionObject::getCodePage(vbs::Args) {
  return vbs::Value::longInt(page().codePage());
}

void SessionObject::putCodePage(vbs::Args args, vbs::CallKind) {
  const std::int32_t number = vbs::toLong(args.back());
  if (!isCodePage(number)) vbs::throwError(vbs::ErrorCode::InvalidCall);
  begin().codePage = number;
  page().setCodePage(number);
}

vbs::Value SessionObject::callAbandon(vbs::Args) {
  begin().isAbandoned = true;
  return {};
}

}  // namespace quorvane::customary
