#include "wish_targets.h"

#include <cstdint>

#include "http/request_head.h"
#include "http/standard/accepted_codings.h"
#include "http/standard/dates.h"
#include "http/standard/preconditions.h"
#include "http/standard/range_set.h"
#include "platform/fake/fake_clock.h"
#include "require.h"

namespace quorvane {

namespace {

void requireRangesInside(std::string_view field, std::uint64_t length, std::string_view bytes) {
  const auto ranges = range_set::read(field, length);
  if (!ranges) return;
  require(ranges->size() <= range_set::kMostRanges, "there are not too many ranges", bytes);
  std::uint64_t sum = 0;
  for (const byte_ranges::Range& range : *ranges) {
    require(range.first <= range.last && range.last < length, "a range lies inside", bytes);
    sum += range.last - range.first + 1;
  }
  require(sum <= length, "no byte is sent twice", bytes);
}

void requireChoice(const AcceptedCodings& accepted, std::string_view bytes) {
  const auto best = accepted.best(content_coding::kAll);
  if (best) {
    require(accepted.accepts(*best), "what is chosen is accepted", bytes);
  } else {
    for (const ContentCoding coding : content_coding::kAll) {
      require(!accepted.accepts(coding), "what is accepted can be chosen", bytes);
    }
  }
}

}  // namespace

void fuzzWishes(std::string_view bytes) {
  RequestHead head;
  head.assign(bytes);
  const ClientWishes wishes = ClientWishes::of(head);
  if (wishes.acceptEncoding) requireChoice(AcceptedCodings::read(*wishes.acceptEncoding), bytes);
  for (const std::uint64_t length : {0ULL, 1ULL, 1000ULL, ~0ULL}) {
    if (wishes.range) requireRangesInside(*wishes.range, length, bytes);
  }
  const TimePoint now = FakeClock().now();
  const Validators present = Validators::ofFile({5, now, 1, false}, ContentCoding::Gzip, now);
  const auto verdict = preconditions::judge(wishes, present, now);
  const bool hasConditions =
      wishes.ifMatch || wishes.ifNoneMatch || wishes.ifModifiedSince || wishes.ifUnmodifiedSince;
  require(hasConditions || verdict == preconditions::Verdict::Proceed,
          "no condition holds nothing up", bytes);
  if (wishes.ifRange && preconditions::holdsForRange(wishes, present, now)) {
    require(*wishes.ifRange == present.tag || parseHttpDate(*wishes.ifRange, now),
            "a range goes on with the same version", bytes);
  }
}

}  // namespace quorvane
