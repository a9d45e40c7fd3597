#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "jet_targets.h"
#include "mutations.h"
#include "platform/bmp_picture.h"
#include "platform/gif_picture.h"
#include "platform/pictures/picture_head.h"
#include "proxy_targets.h"
#include "reader_targets.h"
#include "script_targets.h"
#include "server_targets.h"
#include "sql_targets.h"
#include "wish_targets.h"
#include "xml_targets.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kSeed = 20240229;
constexpr int kParses = 20'000;
constexpr int kRuns = 20'000;
constexpr int kRequests = 5'000;
constexpr int kPages = 3'000;
constexpr int kReads = 20'000;
constexpr int kSettings = 2'000;
constexpr int kImports = 10'000;

const std::vector<std::string> kClients = {
    "GET / HTTP/1.1\r\nHost: here\r\nAccept-Encoding: gzip\r\n\r\n",
    "HEAD /css/site.css HTTP/1.1\r\nHost: here\r\n\r\n\x1EGET /none HTTP/1.0\r\n\r\n",
    "GET /index.qvs?a=1&b=%41+b&a=2 HTTP/1.1\r\nCookie: c=d; SID=7\r\n\r\n",
    "GET /index.qvs?go=/css/site.css HTTP/1.1\r\n\r\n\x1CGET /?go=index.qvs HTTP/1.1\r\n\r\n",
    "POST / HTTP/1.1\r\nContent-Length: 11\r\n\r\n\x1E"
    "a=1&b=%0D%0A",
    "POST /index.qvs HTTP/1.1\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\n\x1E"
    "a=1",
    "GET /css/../../secret.txt HTTP/1.1\r\n\r\n\x1CGET /..%5csecret.txt HTTP/1.1\r\n\r\n",
    "GET /css/site.css HTTP/1.1\r\nRange: bytes=0-9,20-29,-5\r\nConnection: close\r\n\r\n",
    "GET /photo.jpg?rx=10&ry=20&ar=0&gr=1&nc=1 HTTP/1.1\r\nAccept-Encoding: gzip\r\n\r\n",
    "GET /filebin$1 HTTP/1.1\r\n\r\n\x1CGET /song.mp3?id=1 HTTP/1.1\r\n\r\n",
};

/// For a server with customary addresses.
const std::vector<std::string> kVisitors = {
    "GET /css HTTP/1.1\r\nHost: here\r\n\r\n\x1EGET /css/ HTTP/1.1\r\n\r\n",
    "GET /cs%73/sit%65.css HTTP/1.1\r\nAccept-Encoding: gzip\r\n\r\n",
    "GET /App_Data/list.txt HTTP/1.1\r\n\r\n\x1EGET /%2egit/list.txt HTTP/1.1\r\n\r\n",
    "GET /css/..%2fapp%5Fdata%5clist.txt HTTP/1.1\r\n\r\n\x1EGET /css/bin/site.css "
    "HTTP/1.1\r\n\r\n",
    "GET /css/site.db-wal HTTP/1.1\r\n\r\n\x1EGET /css/site.db HTTP/1.1\r\n\r\n",
    "GET /..%5c..%2f..%2Fsecret.txt HTTP/1.1\r\n\r\n\x1EGET /part.asa%00.css HTTP/1.1\r\n\r\n",
    "GET /products/%C3%A9/%E9?a=1 HTTP/1.1\r\nHost: here:80\r\n\r\n",
    "POST /none/at/all HTTP/1.1\r\nContent-Length: 3\r\n\r\n\x1E"
    "a=1",
    "GET /index.qvs?go=/app_data/list.txt HTTP/1.1\r\n\r\n\x1CHEAD / HTTP/1.1\r\n\r\n",
};

/// For a server that keeps to the standard.
const std::vector<std::string> kStandardClients = {
    "GET /css/site.css HTTP/1.1\r\nHost: here\r\n\r\nHEAD / HTTP/1.1\r\nHost: here\r\n\r\n",
    "POST /?go=1 HTTP/1.1\r\nHost: here\r\nTransfer-Encoding: chunked\r\n"
    "Content-Type: application/x-www-form-urlencoded\r\n\r\n"
    "4;a=b\r\na=1&\r\n3\r\nb=2\r\n0\r\nT: u\r\n\r\nGET /photo.jpg?rx=10 HTTP/1.0\r\n\r\n",
    "PUT / HTTP/1.1\r\nHost: here\r\nExpect: 100-continue\r\nContent-Length: 3\r\n\r\n\x1E"
    "a=1OPTIONS * HTTP/1.1\r\nHost: here\r\n\r\n",
    "GET /css/%2e%2e/..%2f../secret.txt HTTP/1.1\r\nHost: here\r\n\r\n\x1C"
    "GET http://there/css/../../secret.txt HTTP/1.1\r\nHost: here\r\n\r\n",
    "DELETE /css/site.css HTTP/1.1\r\nHost: here\r\nContent-Length: 37\r\n\r\n"
    "GET / HTTP/1.1\r\nHost: elsewhere\r\n\r\nTRACE / HTTP/1.1\r\nHost: here\r\n\r\n",
};

/// Those with the extension; all of them without one.
std::vector<std::string> filesUnder(const fs::path& folder, std::string_view extension) {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const bool isWanted = extension.empty() || entry.path().extension() == extension;
    if (entry.is_regular_file() && isWanted) {
      paths.push_back(entry.path());
    }
  }
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> texts;
  for (const fs::path& path : paths) {
    std::ifstream stream(path, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
  }
  return texts;
}

/// The cases of the language tests, each a small script.
std::vector<std::string> corpus() {
  std::vector<std::string> cases;
  for (const std::string& file : filesUnder(LANGUAGE_TESTS, ".vbs")) {
    for (std::size_t at = file.find("'==="); at != file.npos;) {
      const std::size_t next = file.find("'===", at + 1);
      cases.push_back(file.substr(at, next - at));
      at = next;
    }
  }
  return cases;
}

TEST(Fuzz, ParserTakesChangedScripts) {
  Mutations mutations(corpus(), scriptWords(), kSeed);
  for (int i = 0; i < kParses; ++i) fuzzParse(mutations.next());
}

TEST(Fuzz, ParserTakesEveryBeginningOfAScript) {
  for (const std::string& script : corpus()) {
    for (std::size_t end = 0; end < script.size(); end += 7) {
      fuzzParse(std::string_view(script).substr(0, end));
    }
  }
}

TEST(Fuzz, EngineRunsChangedScripts) {
  Mutations mutations(corpus(), scriptWords(), kSeed);
  for (int i = 0; i < kRuns; ++i) fuzzRun(mutations.next());
}

TEST(Fuzz, ServerTakesChangedRequests) {
  Mutations mutations(kClients, requestWords(), kSeed);
  for (int i = 0; i < kRequests; ++i) fuzzRequests(mutations.next());
}

TEST(Fuzz, ServerTakesChangedAddresses) {
  for (const std::string& visitor : kVisitors) fuzzAddresses(visitor);
  Mutations mutations(kVisitors, requestWords(), kSeed);
  for (int i = 0; i < kRequests; ++i) fuzzAddresses(mutations.next());
}

TEST(Fuzz, StandardServerTakesChangedRequests) {
  for (const std::string& client : kStandardClients) fuzzStandard(client);
  Mutations mutations(kStandardClients, requestWords(), kSeed);
  for (int i = 0; i < kRequests; ++i) fuzzStandard(mutations.next());
}

TEST(Fuzz, ServerTakesChangedPages) {
  Mutations mutations(filesUnder(SITE, ".qvs"), scriptWords(), kSeed);
  for (int i = 0; i < kPages; ++i) fuzzPage(mutations.next());
}

TEST(Fuzz, ServerTakesChangedCustomaryPages) {
  const std::vector<std::string> pages = filesUnder(MOVED_SITE, ".asp");
  ASSERT_FALSE(pages.empty());
  for (const std::string& page : pages) fuzzCustomaryPage(page);
  Mutations mutations(pages, scriptWords(), kSeed);
  for (int i = 0; i < kPages; ++i) fuzzCustomaryPage(mutations.next());
}

/// Runs a reader on the small files kept for it, as they are and changed.
void readChanged(const char* corpus, Words words, void (*target)(std::string_view),
                 int times = kReads) {
  const std::vector<std::string> files = filesUnder(fs::path(CORPUS) / corpus, "");
  ASSERT_FALSE(files.empty());
  for (const std::string& file : files) target(file);
  Mutations mutations(files, words, kSeed);
  for (int i = 0; i < times; ++i) target(mutations.next());
}

TEST(Fuzz, HeadReader) {
  readChanged("heads", requestWords(), fuzzHead);
}

TEST(Fuzz, ReaderOfStandardMessages) {
  readChanged("messages", requestWords(), fuzzMessages);
  Mutations mutations(kStandardClients, requestWords(), kSeed);
  for (int i = 0; i < kReads; ++i) fuzzMessages(mutations.next());
}

TEST(Fuzz, ProxiesReader) {
  readChanged("proxies", proxyWords(), fuzzProxies);
}

TEST(Fuzz, WishesReader) {
  readChanged("heads", requestWords(), fuzzWishes);
}

TEST(Fuzz, SettingsReader) {
  readChanged("settings", settingsWords(), fuzzSettings, kSettings);
}

TEST(Fuzz, ModuleReader) {
  readChanged("modules", byteWords(), fuzzModule);
}

TEST(Fuzz, PictureReaders) {
  readChanged("pictures", byteWords(), fuzzPicture);
}

TEST(Fuzz, TheSmallPicturesAreSound) {
  for (const std::string& file : filesUnder(fs::path(CORPUS) / "pictures", ".bmp")) {
    EXPECT_TRUE(decodeBmp(file, 100, 1000).has_value()) << file;
  }
  for (const std::string& file : filesUnder(fs::path(CORPUS) / "pictures", ".gif")) {
    EXPECT_TRUE(firstGifPicture(file));
  }
  for (const char* const type : {".gif", ".jpg", ".png"}) {
    for (const std::string& file : filesUnder(fs::path(CORPUS) / "pictures", type)) {
      EXPECT_TRUE(picture_tools::readPictureHead(file)) << type;
    }
  }
}

TEST(Fuzz, FormReader) {
  readChanged("forms", requestWords(), fuzzForm);
}

TEST(Fuzz, ControlChannel) {
  readChanged("control", controlWords(), fuzzControl);
}

TEST(Fuzz, SqlTranslator) {
  readChanged("sql", sqlWords(), fuzzSql);
}

TEST(Fuzz, TheSmallAccessFilesAreSound) {
  for (const std::string& file : filesUnder(fs::path(CORPUS) / "jet", ".tables")) {
    EXPECT_TRUE(jetImports(file));
  }
}

TEST(Fuzz, ImportOfAccessFiles) {
  readChanged("jet", byteWords(), fuzzJet, kImports);
}

TEST(Fuzz, DocumentsAndExpressions) {
  readChanged("xml", xmlWords(), fuzzXml);
}

TEST(Fuzz, SavedRows) {
  readChanged("rowsets", xmlWords(), fuzzRowset);
}

TEST(Fuzz, WhatOnceWentWrong) {
  const std::vector<std::string> scripts = filesUnder(CRASHES, ".vbs");
  ASSERT_FALSE(scripts.empty());
  for (const std::string& script : scripts) {
    fuzzParse(script);
    fuzzRun(script);
  }
}

}  // namespace

}  // namespace quorvane
