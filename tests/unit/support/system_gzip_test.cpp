#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "platform/system.h"
#include "support/clsZipString.h"
#include "testing/temporary_folder.h"

namespace quorvane {

/// The gzip format against the system's own program, in both directions.
namespace {

const std::unique_ptr<Files> files = makeFiles();
const clsZipString kZip(*files);
constexpr std::int32_t kGzip = clsZipString::kGzip;
constexpr std::size_t kMiB = std::size_t{1} << 20;

std::string noise(std::size_t length) {
  std::mt19937 random(7);
  std::string bytes(length, '\0');
  for (char& c : bytes) c = static_cast<char>(random());
  return bytes;
}

std::string prose(std::size_t length) {
  std::string text;
  for (int line = 1; text.size() < length; ++line) {
    text += "Line " + std::to_string(line) + " of a text that says little.\r\n";
  }
  text.resize(length);
  return text;
}

class SystemGzip : public testing::Test {
 protected:
  /// Runs gzip in the folder; its output goes to the file "out".
  std::string gzip(const std::string& arguments, const std::string& input) {
    folder.write("in", input);
    const std::string command = "cd '" + folder.path() + "' && gzip " + arguments + " >out";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return folder.read("out");
  }

  void expectBothWays(const std::string& data) {
    std::string packed = data;
    ASSERT_TRUE(kZip.CompressStringB(packed, kGzip)) << data.size();
    EXPECT_TRUE(gzip("-dc <in", packed) == data) << data.size();
    for (const char* way : {"-1 <in", "-9 <in", "-c in"}) {  // with a file, its name is stored too
      std::string theirs = gzip(way, data);
      EXPECT_TRUE(kZip.UncompressStringB(theirs, kGzip)) << way << ' ' << data.size();
      EXPECT_TRUE(theirs == data) << way << ' ' << data.size();
    }
  }

  TemporaryFolder folder;
};

}  // namespace

TEST_F(SystemGzip, UnpacksOursAndWeUnpackIts) {
  for (const std::string& data : {std::string("x"), std::string(1, '\0'), prose(100),
                                  prose(kMiB + 1), noise(kMiB + 1), std::string(kMiB - 1, 'a')}) {
    expectBothWays(data);
  }
}

TEST_F(SystemGzip, ContentOfAMultipleOf65536BytesGoesOneWayOnly) {
  const std::string data = noise(kMiB);
  std::string packed = data;
  ASSERT_TRUE(kZip.CompressStringB(packed, kGzip));
  EXPECT_TRUE(gzip("-dc <in", packed) == data);
  const std::string theirs = gzip("-9 <in", data);
  packed = theirs;
  EXPECT_FALSE(kZip.UncompressStringB(packed, kGzip));
  EXPECT_TRUE(packed == theirs) << "left as it was";
}

TEST_F(SystemGzip, NothingIsPackedNorUnpackedHere) {
  std::string data;
  EXPECT_FALSE(kZip.CompressStringB(data, kGzip));
  const std::string theirs = gzip("-9 <in", "");
  data = theirs;
  EXPECT_FALSE(kZip.UncompressStringB(data, kGzip));
  EXPECT_EQ(data, theirs);
}

TEST_F(SystemGzip, ReadsFilesThatWereSavedCompressed) {
  const std::string text = prose(5000);
  EXPECT_TRUE(kZip.SaveFile(folder / "saved.gz", text, clsZipString::Compress, kGzip));
  EXPECT_EQ(gzip("-dc saved.gz", ""), text);
  folder.write("theirs.gz", gzip("-9 <in", text));
  EXPECT_EQ(kZip.LoadFile(folder / "theirs.gz", clsZipString::Uncompress, kGzip), text);
}

}  // namespace quorvane
