#include "script/customary/response_cookies.h"

#include <algorithm>
#include <array>
#include <utility>

#include "components/arguments.h"
#include "http/header_lines.h"
#include "script/customary/code_page.h"
#include "script/customary/failure.h"
#include "script/customary/http_text.h"
#include "script/script_values.h"
#include "support/text.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::customary {

namespace {

constexpr std::size_t kMostCookies = 1024;
constexpr std::size_t kMostBytes = std::size_t{64} << 10;  ///< of one text

}  // namespace

std::string SetCookie::headerLine() const {
  std::string text = encodeCookie(name) + '=';
  if (keys.size() == 0) text += encodeCookie(value);
  bool first = true;
  for (const auto& key : keys) {
    if (!std::exchange(first, false)) text += '&';
    text += encodeCookie(key.key) + '=' + encodeCookie(key.value);
  }
  if (expires) text += "; expires=" + httpDate(*expires);
  if (!domain.empty()) text += "; domain=" + domain;
  if (!path.empty()) text += "; path=" + path;
  if (secure) text += "; secure";
  if (httpOnly) text += "; HttpOnly";
  std::string line;
  header_lines::write(line, "Set-Cookie", text);
  return line;
}

SetCookie& SetCookies::named(std::string_view name) {
  const auto known = std::find_if(cookies_.begin(), cookies_.end(), [&](const auto& cookie) {
    return equalsNoCase(cookie->name, name);
  });
  if (known != cookies_.end()) return **known;
  if (cookies_.size() == kMostCookies) fail("Too many cookies");
  charge(sizeof(SetCookie) + name.size());
  cookies_.push_back(std::make_unique<SetCookie>());
  cookies_.back()->name = name;
  return *cookies_.back();
}

void SetCookies::clear() {
  cookies_.clear();
  charge_.change(0);
}

void SetCookies::charge(std::size_t bytes) {
  if (bytes > kMostBytes) fail("A cookie is too long");
  charge_.change(charge_.bytes() + bytes);
}

SetCookies& ResponseCookie::cookies() const {
  if (!*cookies_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return **cookies_;
}

std::string ResponseCookie::textOf(const vbs::Value& value) const {
  std::string text = encode(codePage_, vbs::toString(value));
  cookies().charge(text.size());
  return text;
}

void ResponseCookie::set(vbs::Args args) {
  std::string value = textOf(args.back());
  SetCookie& cookie = this->cookie();
  if (args.size() == 1) {
    cookie.value = std::move(value);
    cookie.keys.clear();
    return;
  }
  std::string key = textOf(args[0]);
  if (std::string* known = cookie.keys.find(key)) {
    *known = std::move(value);
  } else {
    cookie.keys.add(std::move(key), std::move(value));
  }
}

std::span<const vbs::Member<ResponseCookie>> ResponseCookie::members() {
  using Self = ResponseCookie;
  static constexpr std::array<vbs::Member<Self>, 8> kMembers{{
      {"item", 0, 1, &Self::getValue, &Self::putValue, true},
      {"value", 0, 1, &Self::getValue, &Self::putValue},
      {"haskeys", 0, 0, &Self::getHasKeys},
      {"expires", 0, 0, nullptr, &Self::putExpires},
      {"domain", 0, 0, nullptr, &Self::putDomain},
      {"path", 0, 0, nullptr, &Self::putPath},
      {"secure", 0, 0, nullptr, &Self::putSecure},
      {"httponly", 0, 0, nullptr, &Self::putHttpOnly},
  }};
  return kMembers;
}

vbs::Value ResponseCookie::getValue(vbs::Args args) {
  const SetCookie& cookie = this->cookie();
  if (!arguments::isGiven(args, 0)) return vbs::Value(decode(codePage_, cookie.value));
  const std::string* value = cookie.keys.find(textOf(args[0]));
  return value ? vbs::Value(decode(codePage_, *value)) : vbs::Value(std::string_view());
}

vbs::Value ResponseCookie::getHasKeys(vbs::Args) {
  return vbs::Value::boolean(cookie().keys.size() > 0);
}

void ResponseCookie::putExpires(vbs::Args args, vbs::CallKind) {
  cookie().expires = utcOfLocal(script_values::calendarTime(vbs::toDate(args.back())));
}

void ResponseCookie::putDomain(vbs::Args args, vbs::CallKind) {
  cookie().domain = textOf(args.back());
}

void ResponseCookie::putPath(vbs::Args args, vbs::CallKind) {
  cookie().path = textOf(args.back());
}

void ResponseCookie::putSecure(vbs::Args args, vbs::CallKind) {
  cookie().secure = vbs::toBoolean(args.back());
}

void ResponseCookie::putHttpOnly(vbs::Args args, vbs::CallKind) {
  cookie().httpOnly = vbs::toBoolean(args.back());
}

const SetCookies& ResponseCookies::cookies() const {
  if (!*cookies_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return **cookies_;
}

std::unique_ptr<vbs::Enumerator> ResponseCookies::enumerate() {
  std::vector<vbs::Value> names;
  for (const auto& cookie : cookies().all()) names.emplace_back(decode(codePage_, cookie->name));
  return std::make_unique<vbs::ValueWalk>(std::move(names));
}

std::span<const vbs::Member<ResponseCookies>> ResponseCookies::members() {
  using Self = ResponseCookies;
  static constexpr std::array<vbs::Member<Self>, 3> kMembers{{
      {"item", 1, 1, &Self::getItem, &Self::putItem, true},
      {"count", 0, 0, &Self::getCount},
      {"key", 1, 1, &Self::getKey},
  }};
  return kMembers;
}

vbs::Value ResponseCookies::getItem(vbs::Args args) {
  return script_values::objectValue(
      vbs::make<ResponseCookie>(cookies_, encode(codePage_, vbs::toString(args[0])), codePage_));
}

void ResponseCookies::putItem(vbs::Args args, vbs::CallKind) {
  const vbs::Value cookie = getItem(args.first(1));
  static_cast<ResponseCookie*>(cookie.asObject())->set(args.subspan(1));
}

vbs::Value ResponseCookies::getCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(cookies().all().size()));
}

vbs::Value ResponseCookies::getKey(vbs::Args args) {
  const auto& all = cookies().all();
  return vbs::Value(decode(codePage_, all[script_values::place(args[0], all.size())]->name));
}

}  // namespace quorvane::customary
