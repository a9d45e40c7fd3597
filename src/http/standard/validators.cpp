#include "http/standard/validators.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <limits>

#include "http/standard/grammar.h"

namespace quorvane {

namespace {

void addHex(std::string& text, std::uint64_t number) {
  std::array<char, 16> digits{};
  text.append(digits.data(),
              std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr);
}

std::uint64_t ticksOf(TimePoint time) {
  return static_cast<std::uint64_t>(time.time_since_epoch().count());
}

/// How long a file's time may stay the same while its content changes: a tick of the system's
/// clock, or where the file system keeps no parts of seconds, two of those.
std::chrono::milliseconds settlingTime(TimePoint modified) {
  constexpr std::chrono::milliseconds kTick{50};
  constexpr std::chrono::milliseconds kCoarse{2000};
  return std::chrono::floor<std::chrono::seconds>(modified) == modified ? kCoarse : kTick;
}

}  // namespace

Validators Validators::ofFile(const FileInfo& info, ContentCoding coding, TimePoint now) {
  Validators made;
  made.tag.reserve(48);
  made.tag += '"';
  addHex(made.tag, info.size);
  made.tag += '-';
  addHex(made.tag, ticksOf(info.modified));
  if (!isSettled(info, now)) {
    made.tag += '-';
    addHex(made.tag, ticksOf(now));
  }
  if (coding != ContentCoding::Identity)
    made.tag.append("-").append(content_coding::nameOf(coding));
  made.tag += '"';
  made.modified = std::chrono::floor<std::chrono::seconds>(std::min(info.modified, now));
  return made;
}

bool Validators::isSettled(const FileInfo& info, TimePoint now) {
  const auto age = now - info.modified;
  const auto settling = settlingTime(info.modified);
  return age >= settling || age <= -settling;
}

Validators Validators::ofContent(std::string_view content) {
  Validators made;
  made.tag = '"';
  addHex(made.tag, content.size());
  made.tag += '-';
  addHex(made.tag, fingerprint(content));
  made.tag += '"';
  return made;
}

namespace entity_tags {

bool names(std::string_view list, std::string_view tag, bool strongly) {
  list = standard_grammar::trimmed(list);
  if (list == "*") return true;
  while (!list.empty()) {
    list.remove_prefix(std::min(list.find_first_not_of(", \t"), list.size()));
    const bool isWeak = list.starts_with("W/");
    if (isWeak) list.remove_prefix(2);
    if (!list.starts_with('"')) return false;  // no entity tag, and nothing behind it is sure
    const std::size_t end = list.find('"', 1);
    if (end == std::string_view::npos) return false;
    if (list.substr(0, end + 1) == tag && !(isWeak && strongly)) return true;
    list.remove_prefix(end + 1);
  }
  return false;
}

}  // namespace entity_tags

std::uint64_t fingerprint(std::string_view text) {
  std::uint64_t sum = 14695981039346656037U;  // FNV-1a
  for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
  return sum;
}

}  // namespace quorvane
