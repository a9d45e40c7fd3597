#include "handling_fixture.h"
#include "testing/module_builder.h"

namespace quorvane {

using namespace std::string_literals;

namespace {

/// Files: modules, compressed copies, downloads by key.
class FileRequests : public HandlingFixture {
 protected:
  FileRequests() { files.put("/srv/Scripts/css/site.css", kCss); }
  using Lines = std::vector<std::string>;

  std::string unpacked(const Response& response) {
    std::string body = bytesOf(response.body);
    EXPECT_TRUE(clsZipString::UncompressString(body, clsZipString::kGzip));
    return body;
  }
  Response getPacked(const std::string& target) {
    return answerTo("GET " + target + " HTTP/1.1\r\nAccept-Encoding: gzip\r\n\r\n");
  }

  static inline const std::string kCss = "body { color: red }";
  static inline const std::string kCopy = "/srv/Cache/^CSS^SITE.CSS";
};

}  // namespace

TEST_F(FileRequests, ACompressedCopyIsMadeOnceAndSent) {
  state.EncodeStatic = true;
  const Response first = getPacked("/css/site.css");
  const std::string copy = files.readAll(kCopy).value_or("");
  EXPECT_EQ(bytesOf(first.body), copy);
  EXPECT_EQ(unpacked(first), kCss);
  EXPECT_EQ(first.head,
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: " +
                std::to_string(copy.size()) +
                "\r\n"
                "Server: Quorvane-Server/1.2.3\r\n"
                "Accept-Ranges: bytes\r\n"
                "Content-encoding: gzip\r\n"
                "Content-Type: text/css\r\n"
                "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
                "Connection: Keep-Alive\r\n"
                "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
                "\r\n");
}

TEST_F(FileRequests, AnExistingCopyIsUsedWhateverBecameOfItsSource) {
  state.EncodeStatic = true;
  getPacked("/css/site.css");
  files.stamp = clock.time - std::chrono::hours(1);
  files.put("/srv/Scripts/css/site.css", "changed");
  EXPECT_EQ(unpacked(getPacked("/css/site.css")), kCss);
  EXPECT_TRUE(get("/css/site.css", "Accept-Encoding: none\r\n").ends_with("\r\n\r\nchanged"));
  files.remove(kCopy);
  EXPECT_EQ(unpacked(getPacked("/css/site.css")), "changed");
}

TEST_F(FileRequests, ACopyThatCannotBeStoredIsSentAllTheSame) {
  state.EncodeStatic = true;
  state.CacheFolder = "/srv/NoSuchFolder";
  EXPECT_EQ(unpacked(getPacked("/css/site.css")), kCss);
}

TEST_F(FileRequests, AnEmptyFileHasAnEmptyCopy) {
  state.EncodeStatic = true;
  files.put("/srv/Scripts/empty.txt", "");
  const Response response = getPacked("/empty.txt");
  EXPECT_EQ(bodyLength(response.body), 0u);
  EXPECT_NE(response.head.find("Content-Length: 0\r\n"), std::string::npos);
  EXPECT_EQ(files.readAll("/srv/Cache/^EMPTY.TXT"), "");
}

TEST_F(FileRequests, AFolderWithAFilesNameIsAnEmptyAnswerAndLeavesNoCopy) {
  state.EncodeStatic = true;
  files.addFolder("/srv/Scripts/folder.htm");
  const Response plain = answerTo("GET /folder.htm HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(plain.head.starts_with("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n"));
  EXPECT_EQ(bodyLength(getPacked("/folder.htm").body), 0u);
  EXPECT_FALSE(files.stat("/srv/Cache/^FOLDER.HTM"));
}

TEST_F(FileRequests, FurtherSpellingsOfAPathLeaveNoCopies) {
  state.EncodeStatic = true;
  for (const std::string path : {"//css/site.css", "/css//site.css", "/./css/site.css"}) {
    files.put("/srv/Scripts" + path, kCss);
    EXPECT_EQ(unpacked(getPacked(path)), kCss) << path;
  }
  EXPECT_TRUE(files.list("/srv/Cache").empty());
}

TEST_F(FileRequests, CopiesNeedTheSettingAndTheClient) {
  EXPECT_EQ(bytesOf(getPacked("/css/site.css").body), kCss);
  EXPECT_FALSE(files.stat(kCopy));
  state.EncodeStatic = true;
  EXPECT_TRUE(get("/css/site.css", "Accept-Encoding: br\r\n").ends_with(kCss));
  EXPECT_FALSE(files.stat(kCopy));
}

TEST_F(FileRequests, LargeFilesAreSentFromTheDisk) {
  files.put("/srv/Scripts/large.mp3", std::string(200000, 'x'));
  const Response response = answerTo("GET /large.mp3 HTTP/1.1\r\n\r\n");
  ASSERT_TRUE(std::holds_alternative<FileSlice>(response.body.first));
  EXPECT_NE(response.head.find("Content-Length: 200000\r\n"), std::string::npos);
}

TEST_F(FileRequests, ModuleFilesComeFirstAndPlain) {
  state.EncodeStatic = true;
  modules.loadModule(ModuleBuilder{{{"/css", "site.css", "from module"}}}.build());
  EXPECT_EQ(get("/css/site.css", "Accept-Encoding: gzip\r\nRange: bytes=0-3\r\n"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 11\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/css\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "from module");
  state.NoQvm = true;
  EXPECT_TRUE(get("/css/site.css", "Accept-Encoding: none\r\n").ends_with(kCss));
}

TEST_F(FileRequests, ModuleFilesMustBeOfAnAllowedKind) {
  modules.loadModule(ModuleBuilder{{{"/", "setup.exe", "MZ"}}}.build());
  EXPECT_EQ(get("/setup.exe"), notFoundText("setup.exe"));
}

TEST_F(FileRequests, DownloadsByKeyAreNotCached) {
  files.put("/data/Report.txt", "report");
  aliases.offer("Key$1", "/data/Report.txt");
  EXPECT_EQ(get("/some/FILEBIN$key$1"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Length: 6\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Accept-Ranges: bytes\r\n"
            "Content-Type: text/plain\r\n"
            "Last-Modified: Sat, 07 Mar 2026 10:00:00 GMT\r\n"
            "Connection: Keep-Alive\r\n"
            "Cache-Control: no-cache\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n"
            "report");
  EXPECT_EQ(logged(), (Lines{"10.0.0.9 > GET /some/FILEBIN$key$1"}));
}

TEST_F(FileRequests, DownloadsByKeyLeaveNoCompressedCopy) {
  state.EncodeStatic = true;
  files.put("/data/report.txt", "report");
  aliases.offer("k", "/data/report.txt");
  EXPECT_EQ(unpacked(getPacked("/filebin$k")), "report");
  EXPECT_TRUE(files.list("/srv/Cache").empty());
}

TEST_F(FileRequests, UnknownKeysAndForbiddenFilesAreRefused) {
  EXPECT_EQ(get("/filebin$nothing"), notFoundText(""));
  files.put("/data/a.exe", "MZ");
  aliases.offer("exe", "/data/a.exe");
  EXPECT_EQ(get("/filebin$exe"), notFoundText("a.exe"));
  aliases.offer("gone", "/data/gone.txt");
  EXPECT_EQ(get("/filebin$gone"), notFoundText("gone.txt"));
  aliases.offer("old", "/data/a.txt", clock.time - std::chrono::seconds(1));
  EXPECT_EQ(get("/filebin$old"), notFoundText(""));
  EXPECT_EQ(
      logged(),
      (Lines{"10.0.0.9 > NOT ALLOWED: /filebin$nothing", "10.0.0.9 > NOT ALLOWED: /filebin$exe",
             "10.0.0.9 > NOT FOUND: /filebin$gone", "10.0.0.9 > NOT ALLOWED: /filebin$old"}));
}

TEST_F(FileRequests, FilesOfASundayNameNoDay) {
  files.stamp = clock.time - std::chrono::hours(24);
  files.put("/srv/Scripts/sunday.txt", "x");
  EXPECT_NE(get("/sunday.txt").find("\r\nLast-Modified: , 08 Mar 2026 10:00:00 GMT\r\n"),
            std::string::npos);
}

}  // namespace quorvane
