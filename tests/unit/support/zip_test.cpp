#include "support/clsZipString.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

const std::unique_ptr<Files> files = makeFiles();
const clsZipString kZip(*files);
constexpr std::int32_t kGzip = clsZipString::kGzip;

std::string noise(std::size_t length) {
  std::mt19937 random(42);
  std::string text(length, '\0');
  for (char& c : text) c = static_cast<char>(random());
  return text;
}

std::string packed(std::string text) {
  EXPECT_TRUE(kZip.CompressStringB(text, kGzip));
  return text;
}

std::string littleEndian(std::uint32_t value) {
  std::string bytes;
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
  return bytes;
}

void expectRoundTrip(const std::string& text) {
  std::string data = packed(text);
  EXPECT_TRUE(kZip.UncompressStringB(data, kGzip)) << text.size();
  EXPECT_TRUE(data == text) << text.size();
}

}  // namespace

TEST(Zip, Checksums) {
  EXPECT_EQ(kZip.GetCRC32("123456789"), 0xCBF43926u);
  EXPECT_EQ(kZip.GetCRC32(""), 0u);
  EXPECT_EQ(kZip.GetAdler32(""), 1u);
  EXPECT_EQ(kZip.GetAdler32("Wikipedia"), 0x11E60398u);
}

TEST(Zip, EmptyDataIsRefused) {
  std::string data;
  EXPECT_FALSE(kZip.CompressString(data, kGzip));
  EXPECT_FALSE(kZip.UncompressString(data, kGzip));
  EXPECT_EQ(data, "");
}

TEST(Zip, WritesTheGzipFormat) {
  const std::string text = "some text, some text";
  const std::string data = packed(text);
  EXPECT_EQ(data.substr(0, 2), "\x1F\x8B");
  EXPECT_EQ(data.substr(data.size() - 8), littleEndian(kZip.GetCRC32(text)) + littleEndian(20));
}

TEST(Zip, RestoresWhatItCompressed) {
  for (const std::size_t length : {1u, 2u, 1000u, 65535u, 65537u, 70000u, 1000000u}) {
    expectRoundTrip(std::string(length, 'x'));
    expectRoundTrip(noise(length));
  }
}

TEST(Zip, ContentOfAMultipleOf65536BytesIsNotUnpacked) {
  for (const std::size_t length : {65536u, 131072u}) {
    const std::string before = packed(std::string(length, 'y'));
    std::string data = before;
    EXPECT_FALSE(kZip.UncompressStringB(data, kGzip));
    EXPECT_EQ(data, before);
  }
}

TEST(Zip, DamagedStreamsAreRefusedAndLeftAlone) {
  const std::string whole = packed(noise(5000));
  for (const std::size_t cut : {std::size_t{1}, std::size_t{3}, std::size_t{4}, std::size_t{17},
                                whole.size() / 2, whole.size() - 1}) {
    std::string data = whole.substr(0, cut);
    EXPECT_FALSE(kZip.UncompressStringB(data, kGzip)) << cut;
    EXPECT_EQ(data, whole.substr(0, cut));
  }
  std::string damaged = whole;
  damaged[whole.size() - 8] = static_cast<char>(damaged[whole.size() - 8] ^ 1);
  EXPECT_FALSE(kZip.UncompressStringB(damaged, kGzip));
  std::string text = "not a stream at all";
  EXPECT_FALSE(kZip.UncompressString(text, kGzip));
  EXPECT_EQ(text, "not a stream at all");
}

TEST(Zip, AStreamThatUnpacksToTooMuchIsRefused) {
  std::string data = packed(std::string(1000001, 'x'));
  EXPECT_FALSE(kZip.UncompressStringB(data, kGzip, 1000000));
  EXPECT_TRUE(kZip.UncompressStringB(data, kGzip, 1000100));
}

TEST(Zip, OtherModesAreZlibsWindowBits) {
  std::string data = "zlib format";
  EXPECT_TRUE(kZip.CompressStringB(data, 15));
  EXPECT_EQ(data[0], 0x78);
  EXPECT_FALSE(kZip.UncompressStringB(data, kGzip));
  EXPECT_TRUE(kZip.UncompressStringB(data, 15));
  EXPECT_EQ(data, "zlib format");
  EXPECT_FALSE(kZip.CompressStringB(data, 99));
  EXPECT_EQ(data, "zlib format");
}

TEST(Zip, LoadsFiles) {
  const TemporaryFolder folder;
  folder.write("a.txt", "content");
  folder.write("empty", "");
  EXPECT_EQ(kZip.LoadFile(folder / "a.txt"), "content");
  EXPECT_EQ(kZip.LoadFileB(folder / "a.txt", clsZipString::Compress, kGzip), packed("content"));
  EXPECT_EQ(kZip.LoadFileB(folder / "a.txt", clsZipString::Uncompress, kGzip), "content");
  EXPECT_EQ(kZip.LoadFileB(folder / "empty"), "");
  EXPECT_EQ(kZip.LoadFileB(folder / "missing"), "");
  EXPECT_EQ(kZip.LoadFileB(folder.path()), "");
}

TEST(Zip, SavesFilesAndChangesTheCallersData) {
  const TemporaryFolder folder;
  folder.write("a.gz", "an older and longer content than the new one");
  std::string data = "content";
  EXPECT_TRUE(kZip.SaveFileB(folder / "a.gz", data, clsZipString::Compress, kGzip));
  EXPECT_EQ(data, packed("content"));
  EXPECT_EQ(folder.read("a.gz"), data);
  EXPECT_EQ(kZip.LoadFile(folder / "a.gz", 7, kGzip), "content");
  EXPECT_TRUE(kZip.SaveFile(folder / "b", "plain"));
  EXPECT_EQ(folder.read("b"), "plain");
  EXPECT_FALSE(kZip.SaveFile(folder / "missing/b", "plain"));
}

}  // namespace quorvane
