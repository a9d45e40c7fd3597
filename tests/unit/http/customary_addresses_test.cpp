#include "handling_fixture.h"
#include "testing/module_builder.h"

namespace quorvane {

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

/// A site in the customary way. Pages give their own path, their folder and name as they see them,
/// and their query string.
class CustomaryRequests : public HandlingFixture {
 protected:
  CustomaryRequests() {
    state.Customary = 2;
    put({"index.asp", "docs/default.asp", "docs/index.html", "docs/deep/page.asp", "a.txt"});
    pages.page = [](const ScriptPageRequest& request) {
      const clsHTTPParser& seen = request.parser;
      return ScriptPageResult{FinishedPage{"", request.url + "|" + seen.DocumentPath() + "|" +
                                                   seen.DocumentTitle() + "|" +
                                                   seen.DocumentQueryString()}};
    };
  }
  using Lines = std::vector<std::string>;
  static inline const std::string kMoved =
      "<html><head><title>Document moved</title></head>"
      "<body><h1>Document moved</h1></body></html>";

  /// Files below the document root that hold their own names.
  void put(const std::vector<std::string>& names) {
    for (const std::string& name : names) files.put("/srv/Scripts/" + name, name);
  }
  std::string bodyOf(const std::string& target, const std::string& headers = "") {
    const std::string text = get(target, headers);
    return text.substr(text.find("\r\n\r\n") + 4);
  }
  bool isMissing(const std::string& target) {
    return get(target).starts_with("HTTP/1.1 404 No Found\r\n");
  }
  std::string lineOf(const std::string& text, const std::string& name) {
    const std::size_t start = text.find("\r\n" + name + ": ");
    if (start == std::string::npos) return "";
    const std::size_t value = start + name.size() + 4;
    return text.substr(value, text.find("\r\n", value) - value);
  }
};

}  // namespace

TEST_F(CustomaryRequests, BothKindsOfPagesRun) {
  put({"one.ASP", "two.qvs"});
  EXPECT_EQ(bodyOf("/one.asp?a=1"), "/srv/Scripts/one.ASP|/|one.asp|a=1");
  EXPECT_EQ(bodyOf("/two.qvs"), "/srv/Scripts/two.qvs|/|two.qvs|");
  EXPECT_EQ(lineOf(get("/one.asp"), "Content-Type"), "text/html");
}

TEST_F(CustomaryRequests, APageMayHaveMorePathBehindItsName) {
  put({"shop/item.asp", "old.asp/page.asp", "old.asp/kept.inc", "App_Data/in.asp"});
  pages.page = [](const ScriptPageRequest& request) {
    const clsHTTPParser& seen = request.parser;
    return ScriptPageResult{FinishedPage{"", request.url + "|" + seen.DocumentPath() +
                                                 seen.DocumentTitle() + "|" + seen.pathInfo() +
                                                 "|" + seen.DocumentQueryString()}};
  };
  EXPECT_EQ(bodyOf("/shop/item.asp/17/red%20shoes.html?x=1"),
            "/srv/Scripts/shop/item.asp|/shop/item.asp|/17/red shoes.html|x=1");
  EXPECT_EQ(bodyOf("/shop/Item.ASP/"), "/srv/Scripts/shop/item.asp|/shop/Item.ASP|/|");
  EXPECT_EQ(bodyOf("/shop/item.asp/x.asp"), "/srv/Scripts/shop/item.asp|/shop/item.asp|/x.asp|");
  EXPECT_EQ(bodyOf("/old.asp/page.asp/a"), "/srv/Scripts/old.asp/page.asp|/old.asp/page.asp|/a|");
  EXPECT_EQ(bodyOf("/shop/item.asp"), "/srv/Scripts/shop/item.asp|/shop/item.asp||");
  for (const char* target :
       {"/a.txt/more", "/shop/none.asp/a", "/old.asp/kept.inc", "/old.asp/none", "/shop/x/item.asp",
        "/App_Data/in.asp/a", "/shop/item.asp/../../x"}) {
    EXPECT_TRUE(isMissing(target)) << target;
  }
}

TEST_F(CustomaryRequests, EveryFolderHasDefaultDocumentsOfItsOwn) {
  EXPECT_EQ(bodyOf("/?a=1"), "/srv/Scripts/index.asp|/|index.asp|a=1");
  EXPECT_EQ(bodyOf("/docs/"), "/srv/Scripts/docs/default.asp|/docs/|default.asp|");
  EXPECT_EQ(logged().back(), "10.0.0.9 > GET /docs/default.asp");
  const Lines order{"index.html", "index.htm",   "default.htm",
                    "index.asp",  "DEFAULT.asp", "index.qvs"};
  for (const std::string& name : order) {
    put({"each/" + name});
    const std::string body = bodyOf("/each/");
    EXPECT_TRUE(body.starts_with(name.ends_with("htm") || name.ends_with("html")
                                     ? "each/" + name
                                     : "/srv/Scripts/each/" + name))
        << name << ": " << body;
  }
  EXPECT_EQ(get("/docs/deep/"), notFoundText(""));
  EXPECT_EQ(get("/none/"), notFoundText(""));
  EXPECT_EQ(logged().back(), "10.0.0.9 > NOT FOUND: /none/");
}

TEST_F(CustomaryRequests, TheRootBeginsWithTheServersDefaultDocument) {
  state.DefaultDocument = "home.htm";
  put({"home.htm", "docs/home.htm"});
  EXPECT_EQ(bodyOf("/"), "home.htm");
  EXPECT_EQ(bodyOf("/docs/"), "/srv/Scripts/docs/default.asp|/docs/|default.asp|");
}

TEST_F(CustomaryRequests, AFolderIsNoDefaultDocument) {
  files.addFolder("/srv/Scripts/odd/index.qvs");
  put({"odd/index.htm"});
  EXPECT_EQ(bodyOf("/odd/"), "odd/index.htm");
}

TEST_F(CustomaryRequests, AClientIsSentToTheFolderThatItMeans) {
  EXPECT_EQ(get("/docs?a=1&b=%20"),
            "HTTP/1.1 301 Moved Permanently\r\n"
            "Content-Length: 91\r\n"
            "Server: Quorvane-Server/1.2.3\r\n"
            "Content-Type: text/html\r\n"
            "Location: /docs/?a=1&b=%20\r\n"
            "Connection: Keep-Alive\r\n"
            "Date: Mon, 09 Mar 2026 10:00:00 GMT\r\n"
            "\r\n" +
                kMoved);
  EXPECT_EQ(logged(), Lines{"10.0.0.9 > GET /docs"});
  EXPECT_EQ(lineOf(get("/docs/deep"), "Location"), "/docs/deep/");
  const Response head = answerTo("HEAD /docs HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(head.head.starts_with("HTTP/1.1 301 Moved Permanently\r\n"));
  EXPECT_EQ(bytesOf(head.body), "");
}

TEST_F(CustomaryRequests, WhereAFolderIsSaidCantLeadElsewhere) {
  files.addFolder("/srv/Scripts/evil.net");
  files.addFolder("/srv/Scripts/a b\r\n<x>");
  files.addFolder("/srv/Scripts/a b<x>");
  EXPECT_EQ(lineOf(get("//evil.net"), "Location"), "/evil.net/");
  EXPECT_EQ(lineOf(get("/%2Fevil.net"), "Location"), "/evil.net/");
  EXPECT_EQ(lineOf(get("/%5C%5Cevil.net"), "Location"), "/evil.net/");
  EXPECT_EQ(lineOf(get("/\\evil.net"), "Location"), "/evil.net/");
  EXPECT_EQ(lineOf(get("/a%20b%3Cx%3e"), "Location"), "/a%20b%3Cx%3E/");
  EXPECT_TRUE(isMissing("/a%20b%0D%0A%3Cx%3E"));
}

TEST_F(CustomaryRequests, NamesArePercentDecodedOnce) {
  put({"a b.txt", "100%.txt", "a+b.txt", "%41.txt", "q?.txt", "%4.txt"});
  EXPECT_EQ(bodyOf("/a%20b.txt"), "a b.txt");
  EXPECT_EQ(bodyOf("/%61.tx%74"), "a.txt");
  EXPECT_EQ(bodyOf("/100%.txt"), "100%.txt");
  EXPECT_EQ(bodyOf("/a+b.txt"), "a+b.txt");
  EXPECT_EQ(bodyOf("/%2541.txt"), "%41.txt");
  EXPECT_EQ(bodyOf("/%2541.txt?x"), "%41.txt");
  EXPECT_EQ(bodyOf("/q%3F.txt?x"), "q?.txt");
  EXPECT_EQ(bodyOf("/%4.txt"), "%4.txt");
  EXPECT_EQ(bodyOf("/docs%2Fdeep%5Cpage%2Easp"),
            "/srv/Scripts/docs/deep/page.asp|/docs/deep/|page.asp|");
  EXPECT_TRUE(isMissing("/a.txt%"));
  EXPECT_TRUE(isMissing("/a.txt%2"));
}

TEST_F(CustomaryRequests, AccentedNamesAreFoundInEitherSpelling) {
  put(
      {"gr\xC3\xB6\xC3\x9F"
       "e.txt",
       "caf\xE9/men\xFC.asp", "\xC3\xA9.txt", "\xE9.txt"});
  EXPECT_EQ(bodyOf("/gr%C3%B6%C3%9Fe.txt"),
            "gr\xC3\xB6\xC3\x9F"
            "e.txt");
  EXPECT_EQ(bodyOf("/gr%F6%DFe.txt"),
            "gr\xC3\xB6\xC3\x9F"
            "e.txt");
  EXPECT_EQ(bodyOf("/caf%E9/men%FC.asp"),
            "/srv/Scripts/caf\xE9/men\xFC.asp|/caf\xE9/|men\xFC.asp|");
  EXPECT_EQ(bodyOf("/caf%C3%A9/men%C3%BC.asp"),
            "/srv/Scripts/caf\xE9/men\xFC.asp|/caf\xE9/|men\xFC.asp|");
  EXPECT_EQ(lineOf(get("/caf%C3%A9"), "Location"), "/caf%E9/");
  EXPECT_EQ(bodyOf("/%C3%A9.txt"), "\xC3\xA9.txt");
  EXPECT_EQ(bodyOf("/%E9.txt"), "\xE9.txt");
  EXPECT_TRUE(isMissing("/%E4%B8%AD.txt"));
  EXPECT_TRUE(isMissing("/%C3.txt"));
}

TEST_F(CustomaryRequests, UpwardsItGoesNoFurtherThanToTheRoot) {
  files.put("/srv/secret.txt", "secret");
  files.put("/srv/Scripts2/secret.txt", "secret");
  EXPECT_EQ(bodyOf("/docs/../a.txt"), "a.txt");
  EXPECT_EQ(bodyOf("/docs/./deep/%2E%2e/../a.txt"), "a.txt");
  EXPECT_EQ(bodyOf("/docs/deep/.."), kMoved);
  for (const char* target :
       {"/../secret.txt", "/%2e%2e/secret.txt", "/docs/../../secret.txt", "/..%2fsecret.txt",
        "/..%5Csecret.txt", "/docs/..%5c..%5csecret.txt", "/%2e%2e%2f%2e%2e/srv/secret.txt",
        "/../Scripts2/secret.txt", "/../Scripts/../secret.txt", "/%252e%252e/secret.txt",
        "/...%2fsecret.txt", "/C:/a.txt", "/a.txt%3A%3A$DATA", "/a.txt%00", "/a.txt%00.asp",
        "/nul.txt", "/%01.txt", "/..%c0%afsecret.txt"}) {
    EXPECT_TRUE(isMissing(target)) << target;
  }
  EXPECT_EQ(pages.urls, Lines());
}

TEST_F(CustomaryRequests, WhatIsMissingIsNamedAsItCame) {
  EXPECT_EQ(get("/x/%3Cb%3E.txt"), notFoundText("%3Cb%3E.txt"));
  EXPECT_EQ(logged(), Lines{"10.0.0.9 > NOT FOUND: /x/<b>.txt"});
  EXPECT_EQ(get("/x.unknown"), notFoundText("x.unknown"));
  EXPECT_EQ(logged(), Lines{"10.0.0.9 > NOT ALLOWED: /x.unknown"});
}

TEST_F(CustomaryRequests, FilesOfAllKnownTypesAreServed) {
  const std::vector<std::pair<std::string, std::string>> types{
      {"a.htm", "text/html"},
      {"a.JPG", "image/jpeg"},
      {"a.js", "application/x-javascript"},
      {"a.pdf", "application/pdf"},
      {"a.zip", "application/zip"},
      {"a.exe", "application/octet-stream"},
      {"a.woff", "font/woff"},
      {"a.woff2", "font/woff2"},
      {"a.ttf", "font/ttf"},
      {"a.otf", "font/otf"},
      {"a.svg", "image/svg+xml"},
      {"a.webp", "image/webp"},
      {"a.avif", "image/avif"},
      {"a.mp4", "video/mp4"},
      {"a.webm", "video/webm"},
      {"a.ogg", "audio/ogg"},
      {"a.json", "application/json"},
      {"a.xml", "text/xml"},
      {"a.map", "application/json"},
      {"a.mjs", "text/javascript"},
      {"a.wasm", "application/wasm"},
      {"a.csv", "text/csv"},
      {"a.md", "text/markdown"},
      {"a.7z", "application/x-7z-compressed"},
      {"a.rar", "application/vnd.rar"},
      {"a.webmanifest", "application/manifest+json"},
      {"a.xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"}};
  for (const auto& [name, type] : types) {
    put({"files/" + name});
    const std::string text = get("/files/" + name);
    EXPECT_TRUE(text.starts_with("HTTP/1.1 200 OK\r\n")) << name;
    EXPECT_EQ(lineOf(text, "Content-Type"), type) << name;
    EXPECT_TRUE(text.ends_with("\r\n\r\nfiles/" + name));
  }
  put({"a.unknown", "name", "a.", "a.php", "x.qvm", "page.asp.bak", "page.asp~"});
  for (const char* name : {"/a.unknown", "/name", "/a.", "/a.php", "/x.qvm", "/page.asp.bak",
                           "/page.asp~", "/index.asp.", "/index.asp%20"}) {
    EXPECT_TRUE(isMissing(name)) << name;
  }
}

TEST_F(CustomaryRequests, WhatSitesKeepForThemselvesIsNotServed) {
  const Lines names{
      "conn.inc", "global.asa",       "k.pfx",    "k.P12",        "web.config", "d.MDB", "d.accdb",
      "d.udl",    "d.sqlite",         "d.db",     "x.ini",        "x.log",      "x.cs",  "x.vb",
      "d.db-wal", "d.sqlite-journal", "d.db-SHM", "d.mdb-wal-wal"};
  const Lines hidden{".htaccess",           ".a.txt",         ".git/a.txt",
                     "docs/.svn/a.txt",     "App_Data/a.txt", "APP_DATA/a.asp",
                     "docs/app_data/a.txt", "Bin/a.txt",      "bin/a.asp",
                     "docs/BIN/x/a.txt",    "bin/index.htm",  "bin/default.asp"};
  put(names);
  put(hidden);
  for (const Lines* list : {&names, &hidden}) {
    for (const std::string& name : *list) EXPECT_TRUE(isMissing('/' + name)) << name;
  }
  for (const char* target : {"/%2Egit/a.txt", "/docs/../App%5FData/a.txt", "/app_data%5Ca.txt",
                             "/conn%2Einc", "/conn.inc%20", "/conn.inc.", "/bin", "/bin/", "/.git",
                             "/App_Data", "/Bin./a.txt", "/bin%20/a.txt", "/docs/..%2fbin/a.txt"}) {
    EXPECT_TRUE(isMissing(target)) << target;
  }
  EXPECT_EQ(pages.urls, Lines());
  put({"cgi-bin/a.txt", "bins/a.txt", "bin.txt"});
  for (const char* name : {"cgi-bin/a.txt", "bins/a.txt", "bin.txt"}) {
    EXPECT_EQ(bodyOf('/' + std::string(name)), name);
  }
}

TEST_F(CustomaryRequests, FilesOfModulesFollowTheSameNames) {
  modules.loadModule(ModuleBuilder{{{"/shop/", "index.asp", "text of a page"},
                                    {"/", "m.svg", "picture"},
                                    {"/", "m.inc", "secret"},
                                    {"/App_Data/", "a.txt", "secret"},
                                    {"/", "a b.txt", "blank"}}}
                         .build());
  EXPECT_EQ(bodyOf("/shop/"), "/srv/Scripts/shop/index.asp|/shop/|index.asp|");
  EXPECT_EQ(pages.fileData, "text of a page");
  EXPECT_EQ(lineOf(get("/shop"), "Location"), "/shop/");
  EXPECT_EQ(bodyOf("/m.svg"), "picture");
  EXPECT_EQ(lineOf(get("/m.svg"), "Content-Type"), "image/svg+xml");
  EXPECT_EQ(bodyOf("/a%20b.txt"), "blank");
  for (const char* target : {"/m.inc", "/App_Data/a.txt", "/App_Data$a.txt", "/%24App_Data$a.txt",
                             "/x/../app_data%24a.txt"}) {
    EXPECT_TRUE(isMissing(target)) << target;
  }
}

TEST_F(CustomaryRequests, SoundsAreSentWhateverTheirQuery) {
  put({"song.mp3", "playmedia.qvs"});
  EXPECT_EQ(bodyOf("/song.mp3?id=5"), "song.mp3");
}

TEST_F(CustomaryRequests, DownloadsByKeyStayAsTheyAre) {
  files.put("/elsewhere/report.pdf", "report");
  files.put("/elsewhere/data.mdb", "data");
  aliases.offer("k", "/elsewhere/report.pdf");
  aliases.offer("d", "/elsewhere/data.mdb");
  const std::string text = get("/filebin$k");
  EXPECT_TRUE(text.ends_with("\r\n\r\nreport"));
  EXPECT_EQ(lineOf(text, "Cache-Control"), "no-cache");
  EXPECT_TRUE(isMissing("/filebin$d"));
  EXPECT_TRUE(isMissing("/filebin$none"));
}

TEST_F(CustomaryRequests, APageSpeaksForWhatIsNotFound) {
  state.NotFoundPage = "/errors/404.asp";
  put({"errors/404.asp", "secret.inc"});
  const auto spoken = [](const std::string& query) {
    return "/srv/Scripts/errors/404.asp|/errors/|404.asp|404;http://" + query;
  };
  const std::string host = "Host: Example.org:8080\r\n";
  const std::string text = get("/products/17?a=1&b=%20", host);
  EXPECT_TRUE(text.starts_with("HTTP/1.1 200 OK\r\n"));
  EXPECT_TRUE(text.ends_with(spoken("example.org:8080/products/17?a=1&b=%20")));
  EXPECT_EQ(parser.RequestVar("b", clsHTTPParser::QueryOnly), " ");
  EXPECT_EQ(logged(),
            (Lines{"10.0.0.9 > NOT ALLOWED: /products/17", "10.0.0.9 > GET /errors/404.asp"}));
  EXPECT_EQ(bodyOf("/gone.asp", "Host: x\r\n"), spoken("x/gone.asp"));
  EXPECT_EQ(bodyOf("/secret.inc", "Host: x\r\n"), spoken("x/secret.inc"));
  EXPECT_EQ(bodyOf("/docs/deep/", "Host: x\r\n"), spoken("x/docs/deep/"));
  EXPECT_EQ(bodyOf("/a%20b/..%2f../%00", "Host: x\r\n"), spoken("x/a%20b/..%2f../%00"));
  EXPECT_EQ(bodyOf("/gone.asp"), spoken("localhost/gone.asp"));
  EXPECT_EQ(bodyOf("gone.asp"), spoken("localhost/gone.asp"));
  EXPECT_EQ(bodyOf("/a.txt"), "a.txt");
}

TEST_F(CustomaryRequests, ThatPageSeesTheRequestAsItCameAndSetsTheStatus) {
  state.NotFoundPage = "404.asp";
  put({"404.asp"});
  pages.page = [](const ScriptPageRequest& request) {
    return ScriptPageResult{AnsweredPage{
        "410 Gone", "Content-Type: text/plain",
        std::string(request.parser.method()) + ' ' + std::string(request.parser.body())}};
  };
  const std::string text = textFor("POST /old HTTP/1.1\r\nHost: x\r\nContent-Length: 3\r\n\r\na=1");
  EXPECT_TRUE(text.starts_with("HTTP/1.1 410 Gone\r\n")) << text;
  EXPECT_TRUE(text.ends_with("\r\n\r\nPOST a=1")) << text;
  EXPECT_NE(text.find("\r\nConnection: Keep-Alive\r\n"), std::string::npos);
}

TEST_F(CustomaryRequests, ThatPageIsNoneThatIsMissingItself) {
  for (const char* page : {"/404.asp", "/a.txt", "/docs", "/", "/bin/404.asp", "/../404.asp",
                           "/404.asp?x=1", "x:y.asp"}) {
    put({"bin/404.asp"});
    state.NotFoundPage = page;
    handling.made.reset();
    EXPECT_EQ(get("/gone.htm"), notFoundText("gone.htm")) << page;
  }
  state.NotFoundPage = "/404.asp";
  handling.made.reset();
  EXPECT_EQ(get("/404.asp"), notFoundText("404.asp"));
  EXPECT_EQ(pages.urls, Lines());
}

TEST_F(CustomaryRequests, ThatPageRunsOnceForARequest) {
  state.NotFoundPage = "/404.asp";
  put({"404.asp"});
  pages.page = [](const ScriptPageRequest&) {
    return ScriptPageResult{RedirectedPage{RedirectedPage::Kind::Url, "/gone2.htm"}};
  };
  EXPECT_EQ(get("/gone.htm"), notFoundText("gone.htm"));
  EXPECT_EQ(pages.urls.size(), 1u);
}

TEST_F(CustomaryRequests, ThatPageWaitsForItsTurn) {
  state.NotFoundPage = "/404.asp";
  put({"404.asp"});
  clients.turn = Clients::Turn::Later;
  SlotRecord record;
  EXPECT_EQ(handling.dataArrival(3, record, "GET /gone HTTP/1.1\r\nHost: x\r\n\r\n", "10.0.0.9"),
            std::nullopt);
  EXPECT_TRUE(record.isWhole);
  EXPECT_EQ(logged(), Lines());
  clients.turn = Clients::Turn::Now;
  const auto response = handling.dataArrival(3, record, "", "10.0.0.9");
  ASSERT_TRUE(response);
  EXPECT_EQ(bytesOf(response->body), "/srv/Scripts/404.asp|/|404.asp|404;http://x/gone");
  EXPECT_EQ(logged().size(), 2u);
}

TEST_F(CustomaryRequests, WithoutTheSettingNothingChanges) {
  put({"index.qvs", "docs/index.htm", "a b.txt", "a.svg", "404.asp", "docs/page.htm",
       "App_Data/a.txt", ".a.txt"});
  state.NotFoundPage = "/404.asp";
  for (const std::int32_t customary : {0, 1}) {
    state.Customary = customary;
    handling.made.reset();
    pages.urls.clear();
    EXPECT_EQ(bodyOf("/docs/"), "/srv/Scripts/index.qvs|/|index.qvs|");
    const Lines runs = pages.urls;
    EXPECT_EQ(get("/index.asp"), notFoundText("index.asp"));
    EXPECT_EQ(get("/docs"), notFoundText("docs"));
    EXPECT_EQ(get("/a%20b.txt"), notFoundText("a%20b.txt"));
    EXPECT_EQ(get("/a.svg"), notFoundText("a.svg"));
    EXPECT_EQ(get("/docs/../a.txt"), notFoundText("a.txt"));
    EXPECT_EQ(get("/gone.htm"), notFoundText("gone.htm"));
    EXPECT_EQ(bodyOf("/App_Data/a.txt"), "App_Data/a.txt");
    EXPECT_EQ(bodyOf("/.a.txt"), ".a.txt");
    EXPECT_EQ(pages.urls, runs);
  }
}

}  // namespace quorvane
