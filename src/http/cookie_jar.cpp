#include "http/cookie_jar.h"

#include <algorithm>
#include <utility>

#include "http/header_lines.h"
#include "http/http_date.h"
#include "support/text.h"

namespace quorvane {

void clsCookieObj::setValue(std::string value) {
  value_ = std::move(value);
  changed_ = true;
}

CalendarTime clsCookieObj::Expires() const {
  return parseDateTimeText(expires_).value_or(CalendarTime{});
}

void clsCookieObj::setExpires(const CalendarTime& when) {
  expires_ = dateTimeText(when);
  changed_ = true;
}

void clsCookieObj::setAttribute(std::string& attribute, std::string_view value) {
  const auto ends = [](char c) { return c == ';' || (c >= 0 && c < ' '); };
  if (std::none_of(value.begin(), value.end(), ends)) attribute = value;
}

std::string clsCookieObj::headerLine(HttpDates& dates) const {
  std::string value = name_ + '=' + value_ + "; path=" + path_;
  if (const auto expires = parseDateTimeText(expires_)) value += "; expires=" + dates.of(*expires);
  if (!domain_.empty()) value += "; domain=" + domain_;
  if (secure_) value += "; secure";
  std::string line;
  header_lines::write(line, "Set-Cookie", value);
  return line;
}

clsCookieObj& CookieJar::add(clsCookieObj cookie) {
  std::string key = keyOf(cookie.Name());
  if (clsCookieObj* held = cookies_.find(key)) return *held;
  return *cookies_.add(std::move(key), std::move(cookie));
}

std::string CookieJar::changedHeaderLines(HttpDates& dates) const {
  std::string lines;
  for (const auto& entry : cookies_) {
    if (!entry.value.changed()) continue;
    if (!lines.empty()) lines += "\r\n";
    lines += entry.value.headerLine(dates);
  }
  return lines;
}

std::string CookieJar::keyOf(std::string_view name) {
  return "C_" + upperCase(name);
}

}  // namespace quorvane
