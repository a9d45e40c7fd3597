#include "http/standard/preconditions.h"

#include <algorithm>
#include <array>
#include <utility>

#include "http/request_head.h"
#include "http/standard/dates.h"
#include "http/standard/grammar.h"
#include "support/text.h"

namespace quorvane {

namespace {

struct FieldPlace {
  std::string_view name;
  std::optional<std::string> ClientWishes::*member;
};

constexpr std::array kFields{
    FieldPlace{"Accept-Encoding", &ClientWishes::acceptEncoding},
    FieldPlace{"Range", &ClientWishes::range},
    FieldPlace{"If-Range", &ClientWishes::ifRange},
    FieldPlace{"If-Match", &ClientWishes::ifMatch},
    FieldPlace{"If-None-Match", &ClientWishes::ifNoneMatch},
    FieldPlace{"If-Modified-Since", &ClientWishes::ifModifiedSince},
    FieldPlace{"If-Unmodified-Since", &ClientWishes::ifUnmodifiedSince},
};

}  // namespace

ClientWishes ClientWishes::of(const RequestHead& head) {
  ClientWishes wishes;
  for (const RequestHead::Header& header : head.headers()) {
    for (const FieldPlace& field : kFields) {
      if (header.name.size() != field.name.size()) continue;
      if (!equalsNoCase(header.name, field.name)) continue;
      auto& value = wishes.*field.member;
      if (value) {
        value->append(", ").append(standard_grammar::trimmed(header.value));
      } else {
        value.emplace(standard_grammar::trimmed(header.value));
      }
    }
  }
  if (head.method() == "GET" || head.method() == "HEAD") return wishes;
  ClientWishes others;
  others.acceptEncoding = std::move(wishes.acceptEncoding);
  return others;
}

namespace preconditions {

Verdict judge(const ClientWishes& wishes, const Validators& present, TimePoint now) {
  if (wishes.ifMatch) {
    if (!entity_tags::names(*wishes.ifMatch, present.tag, true)) return Verdict::Failed;
  } else if (wishes.ifUnmodifiedSince && present.modified) {
    const auto since = parseHttpDate(*wishes.ifUnmodifiedSince, now);
    if (since && *present.modified > *since) return Verdict::Failed;
  }
  if (wishes.ifNoneMatch) {
    const bool has = entity_tags::names(*wishes.ifNoneMatch, present.tag, false);
    return has ? Verdict::NotModified : Verdict::Proceed;
  }
  if (wishes.ifModifiedSince && present.modified) {
    const auto since = parseHttpDate(*wishes.ifModifiedSince, now);
    if (since && *present.modified <= *since) return Verdict::NotModified;
  }
  return Verdict::Proceed;
}

bool holdsForRange(const ClientWishes& wishes, const Validators& present, TimePoint now) {
  if (!wishes.ifRange) return true;
  const std::string_view wanted = *wishes.ifRange;
  if (wanted.starts_with('"')) return wanted == present.tag;
  const auto date = parseHttpDate(wanted, now);
  return date && present.modified && *date == *present.modified;
}

}  // namespace preconditions

}  // namespace quorvane
