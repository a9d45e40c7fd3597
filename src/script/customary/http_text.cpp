#include "script/customary/http_text.h"

#include <array>
#include <cstdio>

#include "support/local_time.h"

namespace quorvane::customary {

namespace {

constexpr std::array<const char*, 7> kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

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
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%s, %02d %s %04d %02d:%02d:%02d GMT",
                kDays[static_cast<std::size_t>(utcFields(momentOf(utc)).weekday)], utc.day,
                kMonths[static_cast<std::size_t>(utc.month) - 1], utc.year, utc.hour, utc.minute,
                utc.second);
  return text.data();
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
