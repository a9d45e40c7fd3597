#include "http/byte_ranges.h"

#include <gtest/gtest.h>

#include "handling_fixture.h"

namespace quorvane {

using byte_ranges::parse;
using byte_ranges::Range;
using Ranges = std::vector<Range>;

namespace {

/// A file that is only its length.
class SparseFile final : public OpenFile {
 public:
  explicit SparseFile(std::uint64_t size) { info_.size = size; }
  const FileInfo& info() const override { return info_; }
  std::size_t read(std::uint64_t, char*, std::size_t) const override {
    ADD_FAILURE() << "an answer must not read its file";
    return 0;
  }

 private:
  FileInfo info_;
};

}  // namespace

TEST(ByteRanges, ReadsTheThreeForms) {
  EXPECT_EQ(parse("0-99", 1000), (Ranges{{0, 99}}));
  EXPECT_EQ(parse("-100", 1000), (Ranges{{900, 999}}));
  EXPECT_EQ(parse("500-", 1000), (Ranges{{500, 999}}));
  EXPECT_EQ(parse("0-9,20-29", 1000), (Ranges{{0, 9}, {20, 29}}));
  EXPECT_EQ(parse("-1000", 1000), (Ranges{{0, 999}}));
  EXPECT_EQ(parse("999-999", 1000), (Ranges{{999, 999}}));
}

TEST(ByteRanges, SkipsPiecesThatNameNoRange) {
  EXPECT_EQ(parse("5,0-1,-,,a-b,2-x,x-3,-y,4-5", 1000), (Ranges{{0, 1}, {4, 5}}));
  EXPECT_EQ(parse("1-2-3", 1000), (Ranges{{1, 2}}));
  EXPECT_EQ(parse("1.5-&H5", 1000), (Ranges{{2, 5}}));
}

TEST(ByteRanges, NothingKeptIsUnsatisfiable) {
  for (const char* set : {"", "5", "-", "a-b", ",,"}) EXPECT_TRUE(parse(set, 1000).empty()) << set;
}

TEST(ByteRanges, OneRangeOutsideTheFileSpoilsTheSet) {
  for (const char* set : {"0-1000", "1000-", "1000-1001", "-1001", "5-4", "0-1,5-4", "-0",
                          "0-99999999999999999999", "0-1e300", "--5", "-1e300"}) {
    EXPECT_TRUE(parse(set, 1000).empty()) << set;
  }
  EXPECT_TRUE(parse("0-", 0).empty());
  EXPECT_TRUE(parse("-1", 0).empty());
}

TEST(ByteRanges, TheNumberOfRangesIsBounded) {
  std::string set = "0-0";
  for (std::size_t i = 1; i < byte_ranges::kMostRanges; ++i) set += ",0-0";
  EXPECT_EQ(parse(set, 1000).size(), byte_ranges::kMostRanges);
  EXPECT_TRUE(parse(set + ",0-0", 1000).empty());
}

TEST(ByteRanges, TheBytesOfASetAreBounded) {
  const std::uint64_t large = byte_ranges::kMostBytes;
  EXPECT_EQ(parse("0-,0-", large).size(), 2U);
  EXPECT_TRUE(parse("0-,0-,0-0", large).empty());
  const std::uint64_t small = byte_ranges::kMostBytes / 100;
  std::string set = "0-";
  for (int i = 1; i < 100; ++i) set += ",0-";
  EXPECT_EQ(parse(set, small).size(), 100U);
  EXPECT_TRUE(parse(set + ",0-", small).empty());
}

TEST(ByteRanges, OffsetsHave64Bits) {
  constexpr std::uint64_t kLength = 6000000000;
  const auto file = std::make_shared<SparseFile>(kLength);
  const auto ranges = parse("4294967296-4294967306", kLength);
  const auto answer = byte_ranges::answer(FileSlice{file, 0, kLength}, ranges, "video/mpeg", "");
  const auto& slice = std::get<FileSlice>(answer.body.first);
  EXPECT_EQ(slice.offset, 4294967296u);
  EXPECT_EQ(slice.length, 11u);
  EXPECT_EQ(answer.headers,
            "Content-Type: video/mpeg\r\n"
            "Content-Range: bytes 4294967296-4294967306/6000000000");
  EXPECT_EQ(parse("-1", kLength), (Ranges{{kLength - 1, kLength - 1}}));
}

TEST(ByteRanges, SeveralRangesOfAHugeFileAreOnlySlices) {
  constexpr std::uint64_t kLength = std::uint64_t{1} << 50;
  const auto file = std::make_shared<SparseFile>(kLength);
  const auto answer =
      byte_ranges::answer(FileSlice{file, 0, kLength}, parse("0-,0-", kLength), "a/b", "b");
  EXPECT_GT(bodyLength(answer.body), 2 * kLength);
  EXPECT_LT(bodyLength(answer.body), 2 * kLength + 1000);
}

}  // namespace quorvane
