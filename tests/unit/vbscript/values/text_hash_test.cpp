#include "vbscript/values/text_hash.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace quorvane {

TEST(TextHash, TellsTextsOfAnyLengthApartByEveryByte) {
  for (std::size_t length = 1; length <= 40; ++length) {
    const std::string text(length, 'a');
    for (std::size_t i = 0; i < length; ++i) {
      std::string other = text;
      other[i] = 'b';
      EXPECT_FALSE(vbs::sameBytes(text, other)) << length << " " << i;
      EXPECT_NE(vbs::hashOfBytes(text), vbs::hashOfBytes(other)) << length << " " << i;
    }
    EXPECT_TRUE(vbs::sameBytes(text, std::string(length, 'a')));
    EXPECT_EQ(vbs::hashOfBytes(text), vbs::hashOfBytes(std::string(length, 'a')));
    EXPECT_FALSE(vbs::sameBytes(text, std::string(length + 1, 'a')));
    EXPECT_NE(vbs::hashOfBytes(text), vbs::hashOfBytes(std::string(length + 1, 'a')));
  }
  EXPECT_TRUE(vbs::sameBytes({}, ""));
}

TEST(TextHash, SpreadsKeysThatDifferLittle) {
  std::set<std::uint64_t> places;
  for (int i = 0; i < 1000; ++i) places.insert(vbs::hashOfBytes("key" + std::to_string(i)) % 4096);
  EXPECT_GT(places.size(), 750U);  // 887 of independent ones
}

}  // namespace quorvane
