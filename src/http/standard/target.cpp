#include "http/standard/target.h"

#include <algorithm>
#include <array>

#include "http/standard/grammar.h"
#include "support/text.h"

namespace quorvane {

namespace {

/// Characters that stand for themselves in every address that browsers send, be it a little beyond
/// the grammar of URIs.
bool isPathChar(char c) {
  constexpr std::string_view kNever = "\"#<>?\\^`{}";
  return c > ' ' && c < 127 && kNever.find(c) == std::string_view::npos;
}

bool isQueryChar(char c) {
  constexpr std::string_view kNever = "\"#<>";
  return c > ' ' && c < 127 && kNever.find(c) == std::string_view::npos;
}

/// Whether a path is its own decoded and normal form, as nearly all are.
bool isPlain(std::string_view path) {
  char before = 0;
  for (const char c : path) {
    if (c == '%' || (before == '/' && (c == '/' || c == '.'))) return false;
    before = c;
  }
  return true;
}

/// Of one segment. Nothing for a number that is none, and for what no name may have.
std::optional<std::string> decoded(std::string_view segment) {
  constexpr std::string_view kNoName = "/\\\x7f";
  std::string text;
  text.reserve(segment.size());
  for (std::size_t i = 0; i < segment.size(); ++i) {
    if (segment[i] != '%') {
      text += segment[i];
      continue;
    }
    const auto c = hexByte(segment.substr(i + 1));
    if (!c || static_cast<unsigned char>(*c) < ' ' || kNoName.find(*c) != kNoName.npos) {
      return std::nullopt;
    }
    text += *c;
    i += 2;
  }
  return text;
}

std::optional<std::string> normalised(std::string_view path) {
  if (isPlain(path)) return std::string(path);
  std::string way = "/";
  while (!path.empty()) {
    path.remove_prefix(1);  // the "/"
    const std::size_t end = std::min(path.find('/'), path.size());
    const auto segment = decoded(path.substr(0, end));
    path.remove_prefix(end);
    if (!segment) return std::nullopt;
    if (segment->empty() || *segment == ".") continue;
    if (*segment != "..") {
      way += *segment;
      if (!path.empty()) way += '/';
    } else {
      if (way.size() == 1) return std::nullopt;
      way.resize(way.rfind('/', way.size() - 2) + 1);
    }
  }
  return way;
}

/// Takes scheme and authority off an absolute target; false when that is not what stands there.
bool takeAuthority(std::string_view& text, std::string_view& authority) {
  constexpr std::array<std::string_view, 2> kSchemes{"http://", "https://"};
  for (const std::string_view scheme : kSchemes) {
    if (!startsWithNoCase(text, scheme)) continue;
    text.remove_prefix(scheme.size());
    authority = text.substr(0, text.find_first_of("/?"));
    text.remove_prefix(authority.size());
    return standard_grammar::isAuthority(authority);
  }
  return false;
}

}  // namespace

std::optional<StandardTarget> StandardTarget::read(std::string_view text) {
  StandardTarget target;
  if (text == "*") {
    target.path = target.origin = text;
    return target;
  }
  if (!text.starts_with('/') && !takeAuthority(text, target.authority)) return std::nullopt;
  target.origin = text;
  const std::size_t question = text.find('?');
  target.hasQuery = question != std::string_view::npos;
  if (target.hasQuery) target.query = text.substr(question + 1);
  const std::string_view path = text.substr(0, question);
  if (!std::all_of(path.begin(), path.end(), isPathChar) ||
      !std::all_of(target.query.begin(), target.query.end(), isQueryChar)) {
    return std::nullopt;
  }
  auto way = normalised(path.empty() ? "/" : path);
  if (!way) return std::nullopt;
  target.path = std::move(*way);
  return target;
}

}  // namespace quorvane
