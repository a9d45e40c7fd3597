#include "script/objects/request_cookie.h"

#include <array>
#include <vector>

#include "script/objects/cookie_keys.h"
#include "script/script_values.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

std::unique_ptr<vbs::Enumerator> RequestCookie::enumerate() {
  std::vector<vbs::Value> keys;
  for (const auto& entry : parseCookieKeys(cookie_.Value(), encoder_)) {
    keys.emplace_back(std::string_view(entry.key));
  }
  return std::make_unique<vbs::ValueWalk>(std::move(keys));
}

std::span<const vbs::Member<RequestCookie>> RequestCookie::members() {
  using Self = RequestCookie;
  static constexpr std::array<vbs::Member<Self>, 4> kMembers{{
      {"name", 0, 0, &Self::getName},
      {"value", 0, 1, &Self::getValue, &Self::putValue, true},
      {"expires", 0, 0, &Self::getExpires, &Self::putExpires},
      // For pages written for other servers, like the key of a value.
      {"haskeys", 0, 0, &Self::getHasKeys},
  }};
  return kMembers;
}

vbs::Value RequestCookie::getName(vbs::Args) {
  return vbs::Value(std::string_view(cookie_.Name()));
}

vbs::Value RequestCookie::getValue(vbs::Args args) {
  if (args.empty()) return vbs::Value(std::string_view(cookie_.Value()));
  const CookieKeys keys = parseCookieKeys(cookie_.Value(), encoder_);
  const std::string* value = keys.find(script_values::text(args[0]));
  return vbs::Value(value ? std::string_view(*value) : std::string_view());
}

void RequestCookie::putValue(vbs::Args args, vbs::CallKind) {
  if (args.size() != 1) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
  cookie_.setValue(script_values::text(args.back()));
}

vbs::Value RequestCookie::getHasKeys(vbs::Args) {
  return vbs::Value::boolean(cookie_.Value().find('=') != std::string::npos);
}

vbs::Value RequestCookie::getExpires(vbs::Args) {
  return vbs::Value::date(script_values::days(cookie_.Expires()));
}

void RequestCookie::putExpires(vbs::Args args, vbs::CallKind) {
  cookie_.setExpires(script_values::calendarTime(vbs::toDate(args.back())));
}

}  // namespace quorvane
