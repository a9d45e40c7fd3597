#include "handling_fixture.h"

namespace quorvane {

namespace {

class RangeRequests : public HandlingFixture {
 protected:
  RangeRequests() {
    for (int i = 0; i < 1000; ++i) content += static_cast<char>('a' + i % 26);
    files.put("/srv/Scripts/song.mp3", content);
  }
  using Lines = std::vector<std::string>;

  std::string getRange(const std::string& set) {
    return get("/song.mp3", "Range: bytes=" + set + "\r\n");
  }
  static std::string head(std::size_t length, const std::string& extra) {
    return "HTTP/1.1 206 Partial Content\r\n"
           "Content-Length: " +
           std::to_string(length) +
           "\r\n"
           "Server: Quorvane-Server/1.2.3\r\n"
           "Accept-Ranges: bytes\r\n" +
           extra +
           "\r\n"
           "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
           "Connection: Keep-Alive\r\n"
           "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
           "\r\n";
  }
  static std::string single(const std::string& range) {
    return "Content-Type: audio/mpeg\r\nContent-Range: bytes " + range;
  }

  std::string content;
};

}  // namespace

TEST_F(RangeRequests, OneRangeToTheByte) {
  EXPECT_EQ(getRange("0-99"), head(100, single("0-99/1000")) + content.substr(0, 100));
  EXPECT_EQ(getRange("-100"), head(100, single("900-999/1000")) + content.substr(900));
  EXPECT_EQ(getRange("500-"), head(500, single("500-999/1000")) + content.substr(500));
  EXPECT_EQ(logged().front(), "10.0.0.9 > GET /song.mp3");
}

TEST_F(RangeRequests, SeveralRangesToTheByte) {
  const std::string boundary = "<000102030405060708090a0b0c0d0e0f101112>";
  const std::string body = "--" + boundary +
                           "\r\nContent-Type: audio/mpeg\r\nContent-Range: bytes 0-9/1000\r\n\r\n" +
                           content.substr(0, 10) + "\r\n--" + boundary +
                           "\r\nContent-Type: audio/mpeg\r\nContent-Range: bytes 20-29/1000\r\n"
                           "\r\n" +
                           content.substr(20, 10) + "\r\n--" + boundary + "--\r\n\r\n";
  EXPECT_EQ(getRange("0-9,20-29"),
            head(body.size(), "Content-Type: multipart/byteranges; boundary=" + boundary) + body);
}

TEST_F(RangeRequests, HeadNamesTheLengthOfTheRange) {
  const Response response = answerTo("HEAD /song.mp3 HTTP/1.1\r\nRange: bytes=0-99\r\n\r\n");
  EXPECT_EQ(response.head, head(100, single("0-99/1000")));
  EXPECT_EQ(bodyLength(response.body), 0u);
}

TEST_F(RangeRequests, UnsatisfiableSetsGetTheBadRequestAnswer) {
  for (const char* set : {"5", "1000-1001", "9-5", "0-9,2000-", "x"}) {
    const Response response =
        answerTo("GET /song.mp3 HTTP/1.1\r\nRange: bytes=" + std::string(set) + "\r\n\r\n");
    EXPECT_EQ(response.head, badRequestText()) << set;
    EXPECT_FALSE(response.keepAlive);
    EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /song.mp3"}));
  }
}

TEST_F(RangeRequests, OtherUnitsAndEmptySetsGetTheWholeFile) {
  EXPECT_TRUE(get("/song.mp3", "Range: lines=1-2\r\n").ends_with("\r\n\r\n" + content));
  EXPECT_TRUE(getRange("").starts_with("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n"));
}

TEST_F(RangeRequests, RangesAreOfThePlainFile) {
  state.EncodeStatic = true;
  files.put("/srv/Scripts/a.txt", "0123456789");
  const std::string text = get("/a.txt", "Accept-Encoding: gzip\r\nRange: bytes=2-4\r\n");
  EXPECT_TRUE(text.ends_with("\r\n\r\n234"));
  EXPECT_EQ(text.find("gzip"), std::string::npos);
}

TEST_F(RangeRequests, AFolderHasNoRanges) {
  files.addFolder("/srv/Scripts/folder.txt");
  EXPECT_EQ(get("/folder.txt", "Range: bytes=0-\r\n"), badRequestText());
}

}  // namespace quorvane
