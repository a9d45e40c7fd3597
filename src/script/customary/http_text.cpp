#include "script/customary/http_text.h"

#include "http/http_date.h"
#include "support/local_time.h"

namespace quorvane::customary {

namespace {

TimePoint momentOf(const CalendarTime& utc) {
  using namespace std::chrono;
  const sys_days day = year{utc.year} / month{static_cast<unsigned>(utc.month)} /
                       std::chrono::day{static_cast<unsigned>(utc.day)};
  return day + hours{utc.hour} + minutes{utc.minute} + seconds{utc.second};
}

void appendHex(std::string& out, char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += '%';
  out += kDigits[static_cast<unsigned char>(byte) >> 4];
  out += kDigits[static_cast<unsigned char>(byte) & 15];
}

}  // namespace

std::string httpDate(const CalendarTime& utc) {
  return httpDateText(utcFields(momentOf(utc)));
}

CalendarTime utcOfLocal(const CalendarTime& local) {
  const TimePoint wanted = momentOf(local);
  TimePoint moment = wanted;
  for (int i = 0; i < 2; ++i) moment += wanted - momentOf(localTimeOf(moment));
  return utcFields(moment);
}

std::string encodeCookie(std::string_view bytes) {
  std::string encoded;
  for (const char c : bytes) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (plain) {
      encoded += c;
    } else if (c == ' ') {
      encoded += '+';
    } else {
      appendHex(encoded, c);
    }
  }
  return encoded;
}

std::string encodeLocation(std::string_view bytes) {
  std::string encoded;
  for (const char c : bytes) {
    if (c > ' ' && c < '\x7F') {
      encoded += c;
    } else {
      appendHex(encoded, c);
    }
  }
  return encoded;
}

}  // namespace quorvane::customary
