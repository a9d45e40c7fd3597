#include "script/clsWCookie.h"

#include <array>

#include "http/cookie_jar.h"
#include "script/script_values.h"
#include "support/clsWEncode.h"
#include "vbscript/convert.h"

void clsWCookie::setValue(std::string_view value) {
  if (name_.empty()) return;
  std::string encoded = encoder_.afEncodeURL(value);
  if (clsCookieObj* held = jar_.find(name_)) {
    held->setValue(std::move(encoded));
  } else {
    jar_.add(clsCookieObj(name_, std::move(encoded), true));
  }
}

void clsWCookie::setExpires(const CalendarTime& when) {
  if (name_.empty()) return;
  clsCookieObj* held = jar_.find(name_);
  if (!held) held = &jar_.add(clsCookieObj(name_, {}, true));
  held->setExpires(when);
}

std::span<const vbs::Member<clsWCookie>> clsWCookie::members() {
  using Self = clsWCookie;
  static constexpr std::array<vbs::Member<Self>, 2> kMembers{{
      {"value", 0, 0, nullptr, &Self::putValue, true},
      {"expires", 0, 0, nullptr, &Self::putExpires},
  }};
  return kMembers;
}

void clsWCookie::putValue(vbs::Args args, vbs::CallKind) {
  setValue(script_values::text(args.back()));
}

void clsWCookie::putExpires(vbs::Args args, vbs::CallKind) {
  setExpires(script_values::calendarTime(vbs::toDate(args.back())));
}
