#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "http/clients.h"
#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "http/request_handling.h"
#include "http/script_pages.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/image_library.h"
#include "support/clsQVMod.h"
#include "support/clsWEncode.h"
#include "support/clsZipString.h"
#include "support/file_aliases.h"
#include "testing/fake_services.h"
#include "testing/spelling.h"

namespace quorvane {

inline std::string bytesOf(const BodySegment& segment) {
  if (const auto* own = std::get_if<std::string>(&segment)) return *own;
  if (const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment)) {
    return *shared ? **shared : "";
  }
  const auto& slice = std::get<FileSlice>(segment);
  std::string bytes(slice.length, '\0');
  bytes.resize(slice.file->read(slice.offset, bytes.data(), bytes.size()));
  return bytes;
}

inline std::string bytesOf(const Body& body) {
  std::string bytes = bytesOf(body.first);
  for (const BodySegment& segment : body.rest) bytes += bytesOf(segment);
  return bytes;
}

/// Script pages whose results a test gives as functions of the request, by local path, which is
/// spelled as tests do.
class FakePages final : public ScriptPages {
 public:
  using Page = std::function<ScriptPageResult(const ScriptPageRequest&)>;

  ScriptPageResult run(const ScriptPageRequest& request) override {
    urls.push_back(spelled(request.url));
    fileData = request.fileData;
    socketIndex = request.socketIndex;
    events = &request.events;
    ScriptPageRequest seen = request;
    seen.url = urls.back();
    return page(seen);
  }

  Page page = [](const ScriptPageRequest&) { return ScriptPageResult{}; };
  std::vector<std::string> urls;
  std::string fileData;
  std::int32_t socketIndex = -2;
  PageEvents* events = nullptr;
};

class NoPageEvents final : public PageEvents {
 public:
  void vbsParser_DebugOutput(const std::string&) override {}
  bool vbsParser_Dispatch(std::int32_t, std::string, bool) override { return true; }
};

/// Clients that are all there until a test says otherwise, and have their turns at once.
class FakeClients final : public Clients {
 public:
  Client inSlot(int index) const override { return {index, 1}; }
  bool isThere(const Client&) const override { return there; }
  Turn turnOf(int) override { return turn; }
  void answerLater(int) override { ++later; }
  void answer(const Client& client, Response response) override {
    answered.emplace_back(client.slot, std::move(response));
  }

  bool there = true;
  Turn turn = Turn::Now;
  int later = 0;
  std::vector<std::pair<int, Response>> answered;
};

/// Writes a description of the rendering instead of a picture.
class FakeImages final : public ImageLibrary {
 public:
  explicit FakeImages(const Files& files) : files_(files) {}

  bool render(const std::string& source, const std::string& target,
              const ImageRendering& wanted) override {
    ++renderings;
    lastTarget = spelled(target);
    if (broken) return false;
    return files_.writeAll(target, spelled(source) + " " + std::to_string(wanted.width) + "x" +
                                       std::to_string(wanted.height) +
                                       (wanted.keepAspect ? " kept" : " stretched") +
                                       (wanted.grey ? " grey" : ""));
  }

  bool broken = false;
  int renderings = 0;
  std::string lastTarget;

 private:
  const Files& files_;
};

inline constexpr const char* kNow = "Mon, 09 Mar 2026 10:00:00 GMT";

/// A server's request handling over a file system in memory, with its document root in
/// /srv/Scripts. Files written before a test changes `files.stamp` date from Saturday, 7 March
/// 2026.
class HandlingFixture : public testing::Test, protected FakeServices<> {
 protected:
  HandlingFixture() {
    state.MainPath = "/srv/";
    state.ScriptsFolder = "/srv/Scripts";
    state.CacheFolder = "/srv/Cache";
    state.AppVersion = "1.2.3";
    services.images = &images;
    files.addFolder("/srv/Cache");
    files.stamp = clock.time - std::chrono::hours(48);
  }

  /// What a client at 10.0.0.9 gets for a whole request on slot 3.
  Response answerTo(std::string_view request) {
    SlotRecord record;
    auto response = handling.dataArrival(3, record, request, "10.0.0.9");
    if (!response && clients.later > 0) {
      loop.runPosted();
      response = std::move(clients.answered.back().second);
    }
    EXPECT_TRUE(response.has_value()) << request;
    EXPECT_TRUE(record.pendingText.empty());
    return response ? std::move(*response) : Response{};
  }

  /// Head and body in one text.
  std::string textFor(std::string_view request) {
    const Response response = answerTo(request);
    return response.head + bytesOf(response.body);
  }

  std::string get(const std::string& target, const std::string& headers = "") {
    return textFor("GET " + target + " HTTP/1.1\r\n" + headers + "\r\n");
  }

  static std::string notFoundText(const std::string& name) {
    return "HTTP/1.1 404 No Found\r\n" + std::string(kNow) +
           "\r\nServer: Quorvane-Server/1.2.3\r\nConnection: Close\r\nContent-Type: text/html\r\n"
           "Content-Length: " +
           std::to_string(294 + name.size()) +
           "\r\n\r\n"
           "<html><head><title>The page cannot be found</title></head><body>"
           "<font face='Arial' size='4' color='#990000'><b>HTTP/1.1 404 Not found</b></font><hr>"
           "<p><font face='Verdana' size='2'><b>Error 404</b><br>"
           "<font color='#990000'>The page cannot be found</font><br><br><i>" +
           name + "</i></font></p></body></html>";
  }

  static std::string badRequestText() {
    return "HTTP/1.1 400 Bad Request\r\n" + std::string(kNow) +
           "\r\nServer: Quorvane-Server/1.2.3\r\nConnection: Close\r\nContent-Type: text/html\r\n"
           "Content-Length: 268\r\n\r\n"
           "<html><head><title>400 Bad Request</title></head><body>"
           "<font face='Arial' size='4' color='#990000'><b>Bad Request</b></font><hr>"
           "<p><font face='Verdana' size='2' color='#990000'>Your browser sent a request that this "
           "server could not understand.</font></p></body></html>";
  }

  /// The lines logged since the last call.
  std::vector<std::string> logged() { return std::exchange(log.lines, {}); }

  clsWEncode encoder;
  CookieJar cookies;
  clsHTTPParser parser{encoder, cookies};
  clsQVMod modules{files};
  FileAliases aliases;
  FakePages pages;
  NoPageEvents pageEvents;
  FakeClients clients;
  FakeEventLoop loop;
  FakeImages images{files};
  /// Made on first use, after a test has put its settings.
  struct LazyHandling {
    HandlingFixture& fixture;
    std::unique_ptr<RequestHandling> made;
    std::optional<Response> dataArrival(int index, SlotRecord& record, std::string_view data,
                                        const std::string& ip) {
      if (!made) {
        HandlingFixture& f = fixture;
        made = std::make_unique<RequestHandling>(
            f.services, RequestHandlingParts{f.parser, f.cookies, f.modules, f.aliases, f.pages,
                                             f.pageEvents, f.clients, f.loop});
      }
      return made->dataArrival(index, record, data, ip);
    }
  };
  LazyHandling handling{*this, nullptr};
};

}  // namespace quorvane
