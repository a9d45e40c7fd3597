#include <brotli/decode.h>
#include <zstd.h>

#include <map>

#include "handling_fixture.h"
#include "http/standard/coded_copies.h"
#include "testing/module_builder.h"

namespace quorvane {

namespace {

/// An answer taken apart.
struct Told {
  std::string status;
  std::map<std::string, std::string> fields;  ///< by lower-case names
  std::string body;

  std::string operator[](const std::string& name) const {
    const auto field = fields.find(name);
    return field == fields.end() ? "" : field->second;
  }
};

std::string unpacked(const std::string& data, std::string_view coding) {
  std::string bytes(1 << 20, '\0');
  if (coding == "br") {
    std::size_t size = bytes.size();
    EXPECT_EQ(
        BrotliDecoderDecompress(data.size(), reinterpret_cast<const std::uint8_t*>(data.data()),
                                &size, reinterpret_cast<std::uint8_t*>(bytes.data())),
        BROTLI_DECODER_RESULT_SUCCESS);
    bytes.resize(size);
  } else if (coding == "zstd") {
    const std::size_t size = ZSTD_decompress(bytes.data(), bytes.size(), data.data(), data.size());
    EXPECT_FALSE(ZSTD_isError(size));
    bytes.resize(size);
  } else {
    bytes = data;
    EXPECT_TRUE(clsZipString::UncompressString(bytes, clsZipString::kGzip));
  }
  return bytes;
}

class StandardFilesTest : public HandlingFixture {
 protected:
  StandardFilesTest() {
    state.StandardHTTP = true;
    state.EncodeStatic = true;
    files.put("/srv/Scripts/a.htm", kText);
    files.put("/srv/Scripts/a.png", kText);
  }

  Told ask(const std::string& target, const std::string& fields = "",
           const std::string& method = "GET") {
    const std::string text =
        textFor(method + " " + target + " HTTP/1.1\r\nHost: h\r\n" + fields + "\r\n");
    const std::size_t end = text.find("\r\n\r\n");
    Told told;
    told.body = text.substr(end + 4);
    const std::string head = replaceAll(text.substr(0, end), "\r\n", "\n");
    for (const std::string_view line : split(head, '\n')) {
      const std::size_t colon = line.find(": ");
      if (told.status.empty()) {
        told.status = line.substr(9);
      } else {
        told.fields[lowerCase(line.substr(0, colon))] = line.substr(colon + 2);
      }
    }
    return told;
  }

  /// Content that a test knows by its places.
  static inline const std::string kText = [] {
    std::string text;
    for (int i = 0; i < 100; ++i) text += std::to_string(100000 + i) + "abc\n";
    return text;
  }();
};

}  // namespace

TEST_F(StandardFilesTest, AFileToTheByte) {
  EXPECT_EQ(get("/a.png", "Host: h\r\n"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 1000\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Content-Type: image/png\r\n"
            "Accept-Ranges: bytes\r\n"
            "ETag: \"3e8-189a86c8ba3f4000\"\r\n"
            "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n" +
                kText);
}

TEST_F(StandardFilesTest, ACodingThatTheClientTakes) {
  std::map<std::string, int> tags;
  for (const std::string coding : {"gzip", "br", "zstd"}) {
    const Told told = ask("/a.htm", "Accept-Encoding: " + coding + "\r\n");
    EXPECT_EQ(told.status, "200 OK");
    EXPECT_EQ(told["content-encoding"], coding);
    EXPECT_EQ(told["vary"], "Accept-Encoding");
    EXPECT_EQ(told["accept-ranges"], "none");
    EXPECT_EQ(told["content-length"], std::to_string(told.body.size()));
    EXPECT_EQ(unpacked(told.body, coding), kText);
    ++tags[told["etag"]];
  }
  const Told plain = ask("/a.htm");
  EXPECT_EQ(plain.body, kText);
  EXPECT_EQ(plain["vary"], "Accept-Encoding");
  EXPECT_EQ(plain["content-encoding"], "");
  ++tags[plain["etag"]];
  EXPECT_EQ(tags.size(), 4U);
  EXPECT_EQ(files.list("/srv/Cache").size(), 3U);
}

TEST_F(StandardFilesTest, WhatOthersTookIsNotGivenToThoseWhoDoNot) {
  ask("/a.htm", "Accept-Encoding: gzip\r\n");
  EXPECT_EQ(ask("/a.htm")["content-encoding"], "");
  EXPECT_EQ(ask("/a.htm", "Accept-Encoding: gzip;q=0\r\n")["content-encoding"], "");
  EXPECT_EQ(
      ask("/a.htm", "Accept-Encoding: deflate\r\nAccept-Encoding: br\r\n")["content-encoding"],
      "br");
}

TEST_F(StandardFilesTest, WhoTakesNothingThatThereIsGetsNothing) {
  Told told = ask("/a.htm", "Accept-Encoding: *;q=0\r\n");
  EXPECT_EQ(told.status, "406 Not Acceptable");
  EXPECT_EQ(told["vary"], "Accept-Encoding");
  told = ask("/a.png", "Accept-Encoding: identity;q=0, gzip\r\n");
  EXPECT_EQ(told.status, "406 Not Acceptable");
}

TEST_F(StandardFilesTest, ACopyIsOfThePresentVersion) {
  const std::string accepts = "Accept-Encoding: br\r\n";
  const Told first = ask("/a.htm", accepts);
  EXPECT_EQ(ask("/a.htm", accepts).body, first.body);
  EXPECT_EQ(clients.later, 1);  // made once, beside the loop
  files.stamp += std::chrono::seconds(1);
  files.put("/srv/Scripts/a.htm", "another text");
  const Told second = ask("/a.htm", accepts);
  EXPECT_EQ(unpacked(second.body, "br"), "another text");
  EXPECT_NE(second["etag"], first["etag"]);
  EXPECT_EQ(clients.later, 2);
}

TEST_F(StandardFilesTest, OfAFileThatHasJustChangedNoCopyIsKept) {
  files.stamp = clock.time;
  files.put("/srv/Scripts/new.htm", kText);
  const Told told = ask("/new.htm", "Accept-Encoding: br\r\n");
  EXPECT_EQ(unpacked(told.body, "br"), kText);
  EXPECT_TRUE(files.list("/srv/Cache").empty());
  clock.advance(std::chrono::milliseconds(1));
  EXPECT_NE(ask("/new.htm", "Accept-Encoding: br\r\n")["etag"], told["etag"]);
}

TEST_F(StandardFilesTest, WithoutAFolderForCopiesTheWorkIsNotTriedAgainAndAgain) {
  state.CacheFolder = "/srv/none";
  const std::string accepts = "Accept-Encoding: br\r\n";
  for (int i = 0; i < 3; ++i) EXPECT_EQ(unpacked(ask("/a.htm", accepts).body, "br"), kText);
  EXPECT_EQ(clients.later, 1);
  clock.advance(CodedCopies::kPause + std::chrono::milliseconds(1));
  ask("/a.htm", accepts);
  EXPECT_EQ(clients.later, 2);
}

TEST_F(StandardFilesTest, LargeFilesAreNotCoded) {
  files.put("/srv/Scripts/large.htm", std::string(CodedCopies::kMostSourceBytes + 1, 'x'));
  const Told told = ask("/large.htm", "Accept-Encoding: br\r\n", "HEAD");
  EXPECT_EQ(told["content-encoding"], "");
  EXPECT_EQ(told["vary"], "Accept-Encoding");
  EXPECT_EQ(told["content-length"], std::to_string(CodedCopies::kMostSourceBytes + 1));
}

TEST_F(StandardFilesTest, WhatTheClientHasIsNotSentAgain) {
  for (const std::string accepts : {"", "Accept-Encoding: br\r\n"}) {
    const Told told = ask("/a.htm", accepts);
    const Told again = ask("/a.htm", accepts + "If-None-Match: \"x\", " + told["etag"] + "\r\n");
    EXPECT_EQ(again.status, "304 Not Modified");
    EXPECT_EQ(again.body, "");
    EXPECT_EQ(again["etag"], told["etag"]);
    EXPECT_EQ(again["vary"], "Accept-Encoding");
    EXPECT_NE(again["date"], "");
    EXPECT_EQ(again["content-type"], "");
    EXPECT_EQ(again["content-length"], "");
    EXPECT_EQ(
        ask("/a.htm", accepts + "If-Modified-Since: " + told["last-modified"] + "\r\n").status,
        "304 Not Modified");
  }
  const std::string tag = ask("/a.htm")["etag"];
  EXPECT_EQ(ask("/a.htm", "Accept-Encoding: br\r\nIf-None-Match: " + tag + "\r\n").status,
            "200 OK");
}

TEST_F(StandardFilesTest, WhatTheClientHasNeedsNoCopy) {
  const std::string accepts = "Accept-Encoding: br\r\n";
  const Told told = ask("/a.htm", accepts);
  files.remove("/srv/Cache/" + files.list("/srv/Cache").at(0));
  EXPECT_EQ(ask("/a.htm", accepts + "If-None-Match: " + told["etag"] + "\r\n").status,
            "304 Not Modified");
  EXPECT_TRUE(files.list("/srv/Cache").empty());
}

TEST_F(StandardFilesTest, AnotherVersionThanTheClientMeansFails) {
  const Told told = ask("/a.htm", "If-Match: \"x\"\r\n");
  EXPECT_EQ(told.status, "412 Precondition Failed");
  EXPECT_NE(told.body, "");
  EXPECT_EQ(ask("/a.htm", "If-Match: \"x\"\r\nRange: bytes=0-1\r\n").status,
            "412 Precondition Failed");
}

TEST_F(StandardFilesTest, OneRange) {
  const Told told = ask("/a.htm", "Range: bytes=10-19\r\nAccept-Encoding: br\r\n");
  EXPECT_EQ(told.status, "206 Partial Content");
  EXPECT_EQ(told.body, kText.substr(10, 10));
  EXPECT_EQ(told["content-range"], "bytes 10-19/1000");
  EXPECT_EQ(told["content-encoding"], "");
  EXPECT_EQ(told["accept-ranges"], "bytes");
  EXPECT_EQ(told["vary"], "Accept-Encoding");
  EXPECT_EQ(told["etag"], ask("/a.htm")["etag"]);
  EXPECT_EQ(told["content-type"], "text/html");
  EXPECT_EQ(clients.later, 0);
}

TEST_F(StandardFilesTest, SeveralRanges) {
  const Told told = ask("/a.png", "Range: bytes=500-501,0-1\r\n");
  const std::string type = told["content-type"];
  ASSERT_TRUE(type.starts_with("multipart/byteranges; boundary=")) << type;
  const std::string boundary = type.substr(type.find('=') + 1);
  EXPECT_EQ(boundary.find_first_not_of("0123456789abcdef"), std::string::npos);
  EXPECT_EQ(told.body,
            "--" + boundary +
                "\r\nContent-Type: image/png\r\nContent-Range: bytes 500-501/1000\r\n\r\n" +
                kText.substr(500, 2) + "\r\n--" + boundary +
                "\r\nContent-Type: image/png\r\nContent-Range: bytes 0-1/1000\r\n\r\n" +
                kText.substr(0, 2) + "\r\n--" + boundary + "--\r\n\r\n");
  EXPECT_EQ(told["content-range"], "");
}

TEST_F(StandardFilesTest, RangesThatCannotBe) {
  const Told told = ask("/a.htm", "Range: bytes=1000-\r\n");
  EXPECT_EQ(told.status, "416 Range Not Satisfiable");
  EXPECT_EQ(told["content-range"], "bytes */1000");
  EXPECT_EQ(ask("/a.htm", "Range: lines=1-2\r\n").status, "200 OK");
  EXPECT_EQ(ask("/a.htm", "Range: bytes=0-1\r\nRange: bytes=4-5\r\n").status, "200 OK");
  const Told head = ask("/a.htm", "Range: bytes=0-1\r\n", "HEAD");
  EXPECT_EQ(head.status, "200 OK");
  EXPECT_EQ(head["content-length"], "1000");
  EXPECT_EQ(head.body, "");
}

TEST_F(StandardFilesTest, ADownloadGoesOnWithTheVersionItBeganWith) {
  const Told told = ask("/a.htm");
  const std::string range = "Range: bytes=990-\r\n";
  EXPECT_EQ(ask("/a.htm", range + "If-Range: " + told["etag"] + "\r\n").status,
            "206 Partial Content");
  EXPECT_EQ(ask("/a.htm", range + "If-Range: " + told["last-modified"] + "\r\n").status,
            "206 Partial Content");
  const std::string coded = ask("/a.htm", "Accept-Encoding: br\r\n")["etag"];
  EXPECT_EQ(ask("/a.htm", range + "Accept-Encoding: br\r\nIf-Range: " + coded + "\r\n").status,
            "200 OK");
  files.stamp += std::chrono::milliseconds(10);  // within the same second
  files.put("/srv/Scripts/a.htm", kText);
  EXPECT_EQ(ask("/a.htm", range + "If-Range: " + told["etag"] + "\r\n").body, kText);
}

TEST_F(StandardFilesTest, FilesOfModulesHaveTagsAndRanges) {
  modules.loadModule(ModuleBuilder{{{"/", "in.htm", "text of a module"}}}.build());
  const Told told = ask("/in.htm");
  EXPECT_EQ(told.body, "text of a module");
  EXPECT_NE(told["etag"], "");
  EXPECT_EQ(told["last-modified"], "");
  EXPECT_EQ(ask("/in.htm", "If-None-Match: " + told["etag"] + "\r\n").status, "304 Not Modified");
  EXPECT_EQ(ask("/in.htm", "Range: bytes=5-6\r\nIf-Range: " + told["etag"] + "\r\n").body, "of");
}

TEST_F(StandardFilesTest, ResizedPicturesHaveTheirOwn) {
  const std::string original = ask("/a.png")["etag"];
  const Told small = ask("/a.png?rx=10");
  EXPECT_EQ(small.body, "/srv/Scripts/a.png 10x0 kept");
  EXPECT_NE(small["etag"], original);
  EXPECT_EQ(small["vary"], "");
  EXPECT_EQ(ask("/a.png?rx=10", "If-None-Match: " + small["etag"] + "\r\n").status,
            "304 Not Modified");
  EXPECT_EQ(ask("/a.png?rx=10&nc=1").body, small.body);
  EXPECT_EQ(files.list("/srv/Cache").size(), 1U);
}

TEST_F(StandardFilesTest, WhoseCookiesTheyAreIsNotForSharedCaches) {
  EXPECT_EQ(ask("/a.png", "Cookie: QVS_SESSIONID=12\r\n")["set-cookie"], "");
  pages.page = [](const ScriptPageRequest&) {
    return ScriptPageResult{RedirectedPage{RedirectedPage::Kind::Url, "/a.png", false}, 7};
  };
  files.put("/srv/Scripts/p.qvs", "");
  const Told told = ask("/p.qvs");
  EXPECT_EQ(told.body, kText);
  EXPECT_EQ(told["set-cookie"], "QVS_SESSIONID=7; path=/");
  EXPECT_EQ(told["cache-control"], "private");
}

TEST_F(StandardFilesTest, OutputOfPagesIsCodedWhereTheSettingsSaySo) {
  pages.page = [](const ScriptPageRequest&) {
    return ScriptPageResult{FinishedPage{"", kText}, 0};
  };
  files.put("/srv/Scripts/p.qvs", "");
  const std::string accepts = "Accept-Encoding: br, gzip, zstd\r\n";
  EXPECT_EQ(ask("/p.qvs", accepts)["vary"], "");
  EXPECT_EQ(ask("/p.qvs", accepts).body, kText);
  state.EncodeDynamic = true;
  const Told told = ask("/p.qvs", accepts);
  EXPECT_EQ(told["content-encoding"], "zstd");
  EXPECT_EQ(told["vary"], "Accept-Encoding");
  EXPECT_EQ(unpacked(told.body, "zstd"), kText);
  EXPECT_EQ(ask("/p.qvs")["vary"], "Accept-Encoding");
  EXPECT_EQ(ask("/p.qvs", accepts, "HEAD")["content-length"], told["content-length"]);
}

}  // namespace quorvane
