#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "http/standard/accepted_codings.h"
#include "http/standard/coded_copies.h"
#include "http/standard/dates.h"
#include "http/standard/preconditions.h"
#include "http/standard/range_set.h"
#include "http/standard/validators.h"

namespace quorvane {

namespace {

using byte_ranges::Range;
using Ranges = std::vector<Range>;
using std::chrono::sys_days;
using std::chrono::year;

constexpr TimePoint kNow = sys_days{year{2026} / 3 / 9} + std::chrono::hours{10};
constexpr auto kDate =
    sys_days{year{1994} / 11 / 6} + std::chrono::seconds{8 * 3600 + 49 * 60 + 37};

std::string bestOf(std::string_view field) {
  constexpr std::array kOffered{ContentCoding::Brotli, ContentCoding::Zstd, ContentCoding::Gzip,
                                ContentCoding::Identity};
  const auto best = AcceptedCodings::read(field).best(kOffered);
  return best ? std::string(content_coding::nameOf(*best)) : "none";
}

}  // namespace

TEST(AcceptedCodings, WhatTheClientLikesBestAndThenTheServer) {
  const struct {
    const char* field;
    const char* best;
  } rows[] = {
      {"", "identity"},
      {"gzip", "gzip"},
      {"gzip, deflate, br, zstd", "br"},
      {"gzip, zstd", "zstd"},
      {"GZIP", "gzip"},
      {"x-gzip", "gzip"},
      {"deflate", "identity"},
      {"br;q=0.5, gzip", "gzip"},
      {"br;q=0.5,gzip;q=0.501", "gzip"},
      {"br ; q=0.9 , zstd ; Q=1.000", "zstd"},
      {"gzip;q=0", "identity"},
      {"gzip;q=0.000, br;q=0.001", "br"},
      {"*", "br"},
      {"*;q=0.3, zstd;q=0.2", "br"},
      {"br;q=0, *", "zstd"},
      {"identity", "identity"},
      {"identity, gzip;q=0.5", "identity"},
      {"identity;q=0.4, gzip;q=0.5", "gzip"},
      {"identity;q=0, gzip", "gzip"},
      {"identity;q=0", "none"},
      {"*;q=0", "none"},
      {"*;q=0, identity", "identity"},
      {"identity;q=1, *;q=0", "identity"},
      {"gzip;q=0, br;q=0, zstd;q=0, identity;q=0", "none"},
      {"gzip;q=2", "identity"},
      {"gzip;q=1.001", "identity"},
      {"gzip;q=0.1234", "identity"},
      {"gzip;q=", "identity"},
      {"gzip;q=-1", "identity"},
      {"gzip;level=3", "identity"},
      {"gzip br", "identity"},
      {"gzipped, ungzip", "identity"},
      {",, ,gzip,,", "gzip"},
      {";q=1, gzip", "gzip"},
      {"gzip;q=0, gzip;q=1", "identity"},
  };
  for (const auto& row : rows) EXPECT_EQ(bestOf(row.field), row.best) << row.field;
}

TEST(AcceptedCodings, WhoSaysNothingGetsContentAsItIs) {
  EXPECT_TRUE(AcceptedCodings().accepts(ContentCoding::Identity));
  EXPECT_FALSE(AcceptedCodings().accepts(ContentCoding::Gzip));
}

TEST(HttpDate, ThreeForms) {
  for (const char* text : {"Sun, 06 Nov 1994 08:49:37 GMT", "Sunday, 06-Nov-94 08:49:37 GMT",
                           "Sun Nov  6 08:49:37 1994"}) {
    EXPECT_EQ(parseHttpDate(text, kNow), kDate) << text;
  }
  EXPECT_EQ(parseHttpDate("Sun Nov 16 08:49:37 1994", kNow), kDate + std::chrono::days(10));
  EXPECT_EQ(parseHttpDate("Monday, 01-Jan-76 00:00:00 GMT", kNow), sys_days{year{2076} / 1 / 1});
  EXPECT_EQ(parseHttpDate("Monday, 01-Jan-77 00:00:00 GMT", kNow), sys_days{year{1977} / 1 / 1});
}

TEST(HttpDate, WhatIsNone) {
  for (const char* text :
       {"", "now", "0", "Sun, 06 Nov 1994 08:49:37", "Sun, 06 Nov 1994 08:49:37 CET",
        "Sun, 06 Nov 1994 08:49:37 GMT ", " Sun, 06 Nov 1994 08:49:37 GMT",
        "sun, 06 nov 1994 08:49:37 gmt", "Sun, 6 Nov 1994 08:49:37 GMT",
        "Sun, 31 Feb 1994 08:49:37 GMT", "Sun, 00 Nov 1994 08:49:37 GMT",
        "Sun, 06 Nov 1994 24:00:00 GMT", "Sun, 06 Nov 1994 08:60:00 GMT",
        "Sun, 06 Nov 94 08:49:37 GMT", "Sun, 06-Nov-94 08:49:37 GMT",
        "Xyz, 06 Nov 1994 08:49:37 GMT", "Sun Nov 6 08:49:37 1994", "Sun Nov  6 08:49:37 1994 GMT",
        "Sunday, 06-Nov-1994 08:49:37 GMT"}) {
    EXPECT_FALSE(parseHttpDate(text, kNow)) << text;
  }
}

TEST(Validators, ATagForEachVersionAndCoding) {
  const FileInfo info{255, kNow - std::chrono::hours(1), 7, false};
  const std::string tag = Validators::ofFile(info, ContentCoding::Identity, kNow).tag;
  EXPECT_TRUE(tag.starts_with("\"ff-")) << tag;
  EXPECT_EQ(Validators::ofFile(info, ContentCoding::Brotli, kNow).tag,
            tag.substr(0, tag.size() - 1) + "-br\"");
  FileInfo other = info;
  other.identity = 8;  // the same file on another machine
  EXPECT_EQ(Validators::ofFile(other, ContentCoding::Identity, kNow).tag, tag);
  other.modified += TimePoint::duration(1);
  EXPECT_NE(Validators::ofFile(other, ContentCoding::Identity, kNow).tag, tag);
  other = info;
  other.size = 256;
  EXPECT_NE(Validators::ofFile(other, ContentCoding::Identity, kNow).tag, tag);
}

TEST(Validators, AFileThatHasJustChangedHasNoTagTwice) {
  const auto tagAfter = [](std::chrono::milliseconds age, TimePoint modified, int more) {
    const TimePoint now = modified + age + TimePoint::duration(more);
    return Validators::ofFile({5, modified, 1, false}, ContentCoding::Identity, now).tag;
  };
  const TimePoint fine = kNow + TimePoint::duration(123456789);
  const auto ms = [](int count) { return std::chrono::milliseconds(count); };
  EXPECT_NE(tagAfter(ms(20), fine, 0), tagAfter(ms(20), fine, 1));
  EXPECT_EQ(tagAfter(ms(60), fine, 0), tagAfter(ms(60), fine, 1));
  EXPECT_NE(tagAfter(ms(1900), kNow, 0), tagAfter(ms(1900), kNow, 1));  // a coarse file system
  EXPECT_EQ(tagAfter(ms(2000), kNow, 0), tagAfter(ms(2000), kNow, 1));
  EXPECT_EQ(tagAfter(ms(-5000), kNow, 0), tagAfter(ms(-5000), kNow, 1));  // of the future
}

TEST(Validators, NothingIsModifiedInTheFuture) {
  const FileInfo info{5, kNow + std::chrono::hours(3), 1, false};
  EXPECT_EQ(Validators::ofFile(info, ContentCoding::Identity, kNow).modified, kNow);
}

TEST(Validators, ContentWithoutATimeGoesByWhatItIs) {
  EXPECT_EQ(Validators::ofContent("abc").tag, Validators::ofContent("abc").tag);
  EXPECT_NE(Validators::ofContent("abc").tag, Validators::ofContent("abd").tag);
}

TEST(EntityTags, Lists) {
  const struct {
    const char* list;
    bool strongly;
    bool weakly;
  } rows[] = {
      {"\"a\"", true, true},
      {"W/\"a\"", false, true},
      {"*", true, true},
      {" * ", true, true},
      {"\"b\"", false, false},
      {"\"b\", \"a\"", true, true},
      {"\"b\",\"a\"", true, true},
      {", ,\"b\" , W/\"a\"", false, true},
      {"\"b\\\", \"a\"", true, true},  // a backslash is a character like others
      {"\"b,\"a\"", false, false},
      {"\"x, \"", false, false},
      {"a", false, false},
      {"\"a", false, false},
      {"w/\"a\"", false, false},
      {"\"A\"", false, false},
      {"\"a-br\"", false, false},
      {"\"b\", *", false, false},
      {"", false, false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(entity_tags::names(row.list, "\"a\"", true), row.strongly) << row.list;
    EXPECT_EQ(entity_tags::names(row.list, "\"a\"", false), row.weakly) << row.list;
  }
}

TEST(Preconditions, TheOrderOfTheStandard) {
  using preconditions::Verdict;
  const Validators present{"\"a\"", std::chrono::sys_seconds(kDate)};
  const char* const same = "Sun, 06 Nov 1994 08:49:37 GMT";
  const char* const before = "Sun, 06 Nov 1994 08:49:36 GMT";
  const char* const later = "Sun, 06 Nov 1994 08:49:38 GMT";
  const char* const none = nullptr;
  const struct {
    const char* ifMatch;
    const char* ifUnmodifiedSince;
    const char* ifNoneMatch;
    const char* ifModifiedSince;
    Verdict verdict;
  } rows[] = {
      {none, none, none, none, Verdict::Proceed},
      {"\"a\"", none, none, none, Verdict::Proceed},
      {"*", none, none, none, Verdict::Proceed},
      {"W/\"a\"", none, none, none, Verdict::Failed},
      {"\"b\"", none, none, none, Verdict::Failed},
      {"", none, none, none, Verdict::Failed},
      {"\"a\"", before, none, none, Verdict::Proceed},  // If-Match comes before the date
      {"\"b\"", later, none, none, Verdict::Failed},
      {none, before, none, none, Verdict::Failed},
      {none, same, none, none, Verdict::Proceed},
      {none, later, none, none, Verdict::Proceed},
      {none, "yesterday", none, none, Verdict::Proceed},
      {none, none, "\"a\"", none, Verdict::NotModified},
      {none, none, "W/\"a\"", none, Verdict::NotModified},
      {none, none, "*", none, Verdict::NotModified},
      {none, none, "\"b\", \"c\"", none, Verdict::Proceed},
      {none, none, "\"b\"", later, Verdict::Proceed},  // If-None-Match too
      {none, none, "\"a\"", before, Verdict::NotModified},
      {none, none, none, before, Verdict::Proceed},
      {none, none, none, same, Verdict::NotModified},
      {none, none, none, later, Verdict::NotModified},
      {none, none, none, "yesterday", Verdict::Proceed},
      {"\"b\"", none, "\"a\"", none, Verdict::Failed},
      {"\"a\"", none, "\"a\"", none, Verdict::NotModified},
      {none, before, none, same, Verdict::Failed},
      {none, same, none, same, Verdict::NotModified},
  };
  const auto field = [](const char* text) {
    return text ? std::optional<std::string>(text) : std::nullopt;
  };
  for (const auto& row : rows) {
    ClientWishes wishes;
    wishes.ifMatch = field(row.ifMatch);
    wishes.ifUnmodifiedSince = field(row.ifUnmodifiedSince);
    wishes.ifNoneMatch = field(row.ifNoneMatch);
    wishes.ifModifiedSince = field(row.ifModifiedSince);
    EXPECT_EQ(preconditions::judge(wishes, present, kNow), row.verdict) << &row - rows;
  }
}

TEST(Preconditions, ContentWithoutATimeHasNoDateConditions) {
  ClientWishes wishes;
  wishes.ifModifiedSince = "Sun, 06 Nov 1994 08:49:37 GMT";
  wishes.ifUnmodifiedSince = wishes.ifModifiedSince;
  EXPECT_EQ(preconditions::judge(wishes, {"\"a\"", {}}, kNow), preconditions::Verdict::Proceed);
}

TEST(Preconditions, ARangeOfThisVersionAlone) {
  const Validators present{"\"a\"", std::chrono::sys_seconds(kDate)};
  const struct {
    const char* ifRange;
    bool holds;
  } rows[] = {
      {"\"a\"", true},
      {"\"b\"", false},
      {"W/\"a\"", false},
      {"*", false},
      {"\"a\", \"b\"", false},
      {"", false},
      {"Sun, 06 Nov 1994 08:49:37 GMT", true},
      {"Sunday, 06-Nov-94 08:49:37 GMT", true},
      {"Sun, 06 Nov 1994 08:49:36 GMT", false},
      {"Sun, 06 Nov 1994 08:49:38 GMT", false},
      {"tomorrow", false},
  };
  EXPECT_TRUE(preconditions::holdsForRange({}, present, kNow));
  for (const auto& row : rows) {
    ClientWishes wishes;
    wishes.ifRange = row.ifRange;
    EXPECT_EQ(preconditions::holdsForRange(wishes, present, kNow), row.holds) << row.ifRange;
  }
}

TEST(RangeSet, WhatIsAskedFor) {
  const struct {
    const char* field;
    Ranges ranges;
  } rows[] = {
      {"bytes=0-99", {{0, 99}}},
      {"bytes=-100", {{900, 999}}},
      {"bytes=500-", {{500, 999}}},
      {"BYTES=0-0", {{0, 0}}},
      {"bytes= 0-0 ,\t300-301 ,, ", {{0, 0}, {300, 301}}},
      {"bytes=990-2000", {{990, 999}}},
      {"bytes=-5000", {{0, 999}}},
      {"bytes=0-99999999999999999999999", {{0, 999}}},
      {"bytes=1000-", {}},
      {"bytes=1000-2000,99999999999999999999999-", {}},
      {"bytes=-0", {}},
      {"bytes=2000-,5-6", {{5, 6}}},
      {"bytes=500-600,0-9", {{500, 600}, {0, 9}}},
      {"bytes=0-9,5-14", {{0, 14}}},
      {"bytes=0-9,10-19", {{0, 19}}},
      {"bytes=0-9,89-99", {{0, 99}}},
      {"bytes=0-9,90-99", {{0, 9}, {90, 99}}},
      {"bytes=500-600,0-9,550-700,0-", {{0, 999}}},
      {"bytes=900-,0-9,-50", {{900, 999}, {0, 9}}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(range_set::read(row.field, 1000), row.ranges) << row.field;
  }
}

TEST(RangeSet, WhatIsTakenAsIfItWereNotThere) {
  for (const char* field :
       {"",           "bytes",       "bytes=",        "bytes=,",     "bytes=5",     "bytes=-",
        "bytes=a-b",  "bytes=5-4",   "bytes=0-9,5-4", "bytes=0-9,x", "bytes=1-2-3", "bytes=--5",
        "bytes=+1-2", "bytes=0x1-2", "bytes=1.5-2",   "bytes=1 -2",  "bytes =0-9",  "lines=0-9",
        "0-9",        "bytes:0-9"}) {
    EXPECT_FALSE(range_set::read(field, 1000)) << field;
  }
}

TEST(RangeSet, NothingHasNoRanges) {
  EXPECT_EQ(range_set::read("bytes=0-", 0), Ranges());
  EXPECT_EQ(range_set::read("bytes=-0", 0), Ranges());
  EXPECT_FALSE(range_set::read("bytes=-1", 0));
}

TEST(RangeSet, ManyRangesAreNobodysWish) {
  std::string field = "bytes=0-0";
  for (std::size_t i = 1; i < range_set::kMostRanges; ++i) {
    field += ',' + std::to_string(i * 1000) + '-' + std::to_string(i * 1000);
  }
  EXPECT_EQ(range_set::read(field, 1'000'000)->size(), range_set::kMostRanges);
  EXPECT_FALSE(range_set::read(field + ",200000-", 1'000'000));
  std::string same = "bytes=0-";
  for (int i = 0; i < 5000; ++i) same += ",0-";
  EXPECT_EQ(range_set::read(same, 1000), (Ranges{{0, 999}}));
}

TEST(CodedCopies, NamesAreKnownAgain) {
  const FoundFile source{"/srv/a.htm", {5, kNow, 1, false}};
  const std::string name = CodedCopies::nameOf(source, ContentCoding::Zstd);
  EXPECT_TRUE(CodedCopies::isCopy(name)) << name;
  FoundFile changed = source;
  changed.info.modified += TimePoint::duration(1);
  EXPECT_NE(CodedCopies::nameOf(changed, ContentCoding::Zstd), name);
  changed = source;
  changed.path = "/srv/b.htm";
  EXPECT_NE(CodedCopies::nameOf(changed, ContentCoding::Zstd), name);
  for (const char* other : {"^E", "^E12", "^E.br", "^E12.txt", "^EX.HTM", "^CSS^E1.BR", "E12.br"}) {
    EXPECT_FALSE(CodedCopies::isCopy(other)) << other;
  }
}

}  // namespace quorvane
