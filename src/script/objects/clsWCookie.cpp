#include "script/objects/clsWCookie.h"

#include <array>

#include "http/cookie_jar.h"
#include "script/objects/cookie_keys.h"
#include "script/script_values.h"
#include "support/clsWEncode.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/time_check.h"

namespace quorvane {

namespace {

/// Browsers keep some 4 KiB of each cookie and some hundred cookies of a site.
constexpr std::size_t kMostBytes = std::size_t{64} * 1024;
constexpr std::size_t kMostCookies = 1024;

}  // namespace

void clsWCookie::setValue(std::string_view value) {
  if (value.size() > kMostBytes) return;
  if (clsCookieObj* cookie = held()) cookie->setValue(encoder_.afEncodeURL(value));
}

void clsWCookie::setKey(std::string key, std::string value) {
  const clsCookieObj* cookie = jar_.find(name_);
  CookieKeys keys;
  if (cookie && cookie->changed()) {
    vbs::countWork(cookie->Value().size());
    keys = parseCookieKeys(encoder_.afDecodeURL(cookie->Value()).value_or(""), encoder_);
  }
  if (std::string* known = keys.find(key)) {
    *known = std::move(value);
  } else {
    keys.add(std::move(key), std::move(value));
  }
  setValue(joinCookieKeys(keys, encoder_));
}

void clsWCookie::setExpires(const CalendarTime& when) {
  if (clsCookieObj* cookie = held()) cookie->setExpires(when);
}

clsCookieObj* clsWCookie::held() {
  if (name_.empty() || name_.size() > kMostBytes) return nullptr;
  if (clsCookieObj* cookie = jar_.find(name_)) return cookie;
  return jar_.size() < kMostCookies ? &jar_.add(clsCookieObj(name_, {}, true)) : nullptr;
}

std::span<const vbs::Member<clsWCookie>> clsWCookie::members() {
  using Self = clsWCookie;
  static constexpr std::array<vbs::Member<Self>, 5> kMembers{{
      {"value", 0, 1, nullptr, &Self::putValue, true},
      {"expires", 0, 0, nullptr, &Self::putExpires},
      // For pages written for other servers, like the key of a value.
      {"path", 0, 0, nullptr, &Self::putPath},
      {"domain", 0, 0, nullptr, &Self::putDomain},
      {"secure", 0, 0, nullptr, &Self::putSecure},
  }};
  return kMembers;
}

void clsWCookie::putValue(vbs::Args args, vbs::CallKind) {
  std::string value = script_values::text(args.back());
  if (args.size() == 1) return setValue(value);
  setKey(script_values::text(args[0]), std::move(value));
}

void clsWCookie::putExpires(vbs::Args args, vbs::CallKind) {
  setExpires(script_values::calendarTime(vbs::toDate(args.back())));
}

void clsWCookie::putPath(vbs::Args args, vbs::CallKind) {
  const std::string path = script_values::text(args.back());
  if (path.size() > kMostBytes) return;
  if (clsCookieObj* cookie = held()) cookie->setPath(path);
}

void clsWCookie::putDomain(vbs::Args args, vbs::CallKind) {
  const std::string domain = script_values::text(args.back());
  if (domain.size() > kMostBytes) return;
  if (clsCookieObj* cookie = held()) cookie->setDomain(domain);
}

void clsWCookie::putSecure(vbs::Args args, vbs::CallKind) {
  const bool secure = vbs::toBoolean(args.back());
  if (clsCookieObj* cookie = held()) cookie->setSecure(secure);
}

}  // namespace quorvane
