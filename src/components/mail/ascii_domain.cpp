#include "components/mail/ascii_domain.h"

#include <algorithm>
#include <cstdint>

#include "support/text.h"
#include "vbscript/values/string.h"

namespace quorvane::mail {

namespace {

std::u32string codePoints(std::string_view text) {
  std::u32string points;
  for (const char16_t unit : vbs::String::fromUtf8(text).lower().wide()) {
    const bool isSecond = unit >= 0xDC00 && unit <= 0xDFFF;
    if (isSecond && !points.empty() && points.back() >= 0xD800 && points.back() <= 0xDBFF) {
      points.back() = 0x10000 + ((points.back() - 0xD800) << 10) + (unit - 0xDC00);
    } else {
      points += unit;
    }
  }
  return points;
}

// The figures of RFC 3492.
constexpr std::uint32_t kBase = 36;
constexpr std::uint32_t kLeast = 1;
constexpr std::uint32_t kMost = 26;
constexpr std::uint32_t kSkew = 38;
constexpr std::uint32_t kDamp = 700;
constexpr std::uint32_t kFirstBias = 72;
constexpr char32_t kFirstPoint = 0x80;

std::uint32_t nextBias(std::uint32_t delta, std::uint32_t count, bool isFirst) {
  delta /= isFirst ? kDamp : 2;
  delta += delta / count;
  std::uint32_t steps = 0;
  for (; delta > (kBase - kLeast) * kMost / 2; steps += kBase) delta /= kBase - kLeast;
  return steps + (kBase - kLeast + 1) * delta / (delta + kSkew);
}

void appendNumber(std::string& out, std::uint32_t number, std::uint32_t bias) {
  constexpr std::string_view kDigits = "abcdefghijklmnopqrstuvwxyz0123456789";
  for (std::uint32_t place = kBase;; place += kBase) {
    const std::uint32_t threshold = place <= bias           ? kLeast
                                    : place >= bias + kMost ? kMost
                                                            : place - bias;
    if (number < threshold) break;
    out += kDigits[threshold + (number - threshold) % (kBase - threshold)];
    number = (number - threshold) / (kBase - threshold);
  }
  out += kDigits[number];
}

std::string encodedLabel(const std::u32string& points) {
  std::string out;
  for (const char32_t point : points) {
    if (point < kFirstPoint) out += static_cast<char>(point);
  }
  auto done = static_cast<std::uint32_t>(out.size());
  const std::uint32_t plain = done;
  if (plain > 0) out += '-';
  std::uint32_t delta = 0;
  std::uint32_t bias = kFirstBias;
  for (char32_t at = kFirstPoint; done < points.size(); ++at, ++delta) {
    char32_t next = 0x110000;
    for (const char32_t point : points) {
      if (point >= at) next = std::min(next, point);
    }
    delta += (next - at) * (done + 1);
    at = next;
    for (const char32_t point : points) {
      if (point < at) ++delta;
      if (point != at) continue;
      appendNumber(out, delta, bias);
      bias = nextBias(delta, done + 1, done == plain);
      delta = 0;
      ++done;
    }
  }
  return "xn--" + out;
}

}  // namespace

std::string asciiDomain(std::string_view domain) {
  constexpr std::size_t kLongestLabel = 63;
  std::string out;
  for (const std::string_view label : split(domain, '.')) {
    if (!out.empty()) out += '.';
    const std::u32string points = codePoints(label);
    const bool isAscii = std::all_of(label.begin(), label.end(),
                                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    out += isAscii || points.size() > kLongestLabel ? std::string(label) : encodedLabel(points);
  }
  return out;
}

}  // namespace quorvane::mail
