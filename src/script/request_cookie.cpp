#include "script/request_cookie.h"

#include <array>

#include "script/script_values.h"
#include "vbscript/convert.h"

std::span<const vbs::Member<RequestCookie>> RequestCookie::members() {
  using Self = RequestCookie;
  static constexpr std::array<vbs::Member<Self>, 3> kMembers{{
      {"name", 0, 0, &Self::getName},
      {"value", 0, 0, &Self::getValue, &Self::putValue, true},
      {"expires", 0, 0, &Self::getExpires, &Self::putExpires},
  }};
  return kMembers;
}

vbs::Value RequestCookie::getName(vbs::Args) {
  return vbs::Value(std::string_view(cookie_.Name()));
}

vbs::Value RequestCookie::getValue(vbs::Args) {
  return vbs::Value(std::string_view(cookie_.Value()));
}

void RequestCookie::putValue(vbs::Args args, vbs::CallKind) {
  cookie_.setValue(script_values::text(args.back()));
}

vbs::Value RequestCookie::getExpires(vbs::Args) {
  return vbs::Value::date(script_values::days(cookie_.Expires()));
}

void RequestCookie::putExpires(vbs::Args args, vbs::CallKind) {
  cookie_.setExpires(script_values::calendarTime(vbs::toDate(args.back())));
}
