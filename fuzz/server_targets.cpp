#include "server_targets.h"

#include <string>
#include <vector>

#include "console/mainForm.h"
#include "http/standard/chunked_body.h"
#include "platform/fake/fake_clock.h"
#include "platform/fake/fake_event_loop.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "platform/fake/memory_files.h"
#include "reader_targets.h"
#include "require.h"

namespace quorvane {

namespace {

constexpr char kPieceEnd = '\x1E';
constexpr char kClientEnd = '\x1C';
constexpr std::string_view kSecret = "what nobody may have";

constexpr std::string_view kIndex =
    "<!-- #include file=\"part.inc\" -->\n"
    "<% Session(\"n\") = Session(\"n\") & Request(\"a\"): Response.Cookies(\"c\") = Request(\"b\") "
    "%>\n"
    "<p><%= Server.HTMLEncode(Request.Form) %> <%= Request.Cookies(\"c\") %></p>\n"
    "<% If Request(\"go\") <> \"\" Then Response.Redirect Request(\"go\") %>\n"
    "<% Response.Flush: Response.Write Session(\"n\") %>";

class NoSettings final : public ServerSettings {
 public:
  void LoadSettings() override {}
  std::string userLanguage() const override { return {}; }
};

/// The next part of `bytes`, up to and without `end`, which is taken away too.
std::string_view takePart(std::string_view& bytes, char end) {
  const std::size_t found = bytes.find(end);
  const std::string_view part = bytes.substr(0, found);
  bytes.remove_prefix(found == std::string_view::npos ? bytes.size() : found + 1);
  return part;
}

enum class Addressing { Own, Customary, Standard };

class FuzzServer {
 public:
  explicit FuzzServer(std::string_view input, Addressing addressing = Addressing::Own)
      : input_(input) {
    if (addressing == Addressing::Customary) {
      state_.Customary = 2;
      state_.NotFoundPage = "/css/../none.asp";
      files.put("/base/Server/Scripts/none.asp", "none: <%= 1 + 1 %>");
      for (const char* name : {"App_Data/list.txt", ".git/list.txt", "css/Bin/site.css", "part.asa",
                               "css/site.db", "css/site.db-wal"}) {
        files.put("/base/Server/Scripts/" + std::string(name), std::string(kSecret));
      }
    }
    state_.StandardHTTP = addressing == Addressing::Standard;
    files.put("/base/Server/Scripts/index.qvs", std::string(kIndex));
    files.put("/base/Server/Scripts/part.inc", "<h1>Part</h1>");
    files.put("/base/Server/Scripts/css/site.css", std::string(3000, 'c'));
    files.put("/base/Server/Scripts/photo.jpg", std::string(300, 'j'));
    files.put("/base/secret.txt", std::string(kSecret));
    files.addFolder("/base/Server/Cache");
    clock_.step = std::chrono::seconds(1);  // a page that never ends has soon had its time
    window_.StartServer();
    require(window_.running(), "the server starts");
  }

  /// A client sends its pieces and goes. All that was sent to it.
  std::string serve(std::string_view pieces) {
    FakeSocket* socket = loop_.listener->connect();
    require(socket != nullptr, "a client is let in");
    while (!pieces.empty() && socket->state() == SocketState::Connected) {
      const int sends = socket->sends;
      socket->arrive(takePart(pieces, kPieceEnd));
      if (socket->sends > sends) socket->completeSend();
    }
    if (socket->state() == SocketState::Connected) socket->peerClose();
    require(socket->sent.empty() || socket->sent.starts_with("HTTP/1.1 "), "an answer is one");
    return socket->sent;
  }

  /// Whether the server is what it was.
  void check() {
    const std::string answer = serve("GET /css/site.css HTTP/1.1\r\nHost: here\r\n\r\n");
    require(answer.starts_with("HTTP/1.1 200 OK\r\n"), "it goes on serving");
    for (const std::string& line : window_.form().llist[FormModel::kStatus].lines()) {
      const auto text = std::string_view(line).substr(std::string_view("10:00:00 ").size());
      require(!text.starts_with("Request failed"), line);
    }
    for (FakeTimer* timer : loop_.timers) timer->tick();
    window_.closeWindow();
  }

  void require(bool condition, std::string_view what) const {
    quorvane::require(condition, what, input_);
  }

  MemoryFiles files;

 private:
  static ServerState stateForPages() {
    ServerState state;
    state.MainPath = "/base/";
    state.ScriptsFolder = "/base/Server/Scripts";
    state.CacheFolder = "/base/Server/Cache";
    state.LogsFolder = "/base/Server/Logs";
    state.DebugMode = true;
    state.LogServer = false;
    state.EncodeStatic = state.EncodeDynamic = true;
    return state;
  }

  std::string_view input_;
  ServerState state_ = stateForPages();
  FakeEventLoop loop_;
  FakeClock clock_;
  CountingRandom random_;
  FakeProcess process_;
  NoSettings settings_;
  FormModel form_;
  StatusLists status_{state_, clock_, form_};
  Services services_{state_, status_, clock_, files, random_, process_};
  mainForm window_{{services_, loop_, form_, status_, settings_}};
};

}  // namespace

namespace {

void fuzzServer(std::string_view bytes, Addressing addressing) {
  FuzzServer server(bytes, addressing);
  for (std::string_view left = bytes; !left.empty();) {
    const std::string sent = server.serve(takePart(left, kClientEnd));
    server.require(sent.find(kSecret) == std::string::npos, "no file is sent that may not be");
  }
  server.check();
}

}  // namespace

namespace {

/// What of an answer's head tells its end.
std::string valueIn(std::string_view head, const std::string& name) {
  const std::size_t line = head.find("\r\n" + name + ": ");
  if (line == head.npos) return {};
  const std::size_t value = line + name.size() + 4;
  return std::string(head.substr(value, head.find("\r\n", value) - value));
}

/// The length of a body in chunks, its end included; npos when it is none.
std::size_t chunkedLength(std::string_view body) {
  std::string data;
  std::string_view rest = body;
  const bool isWhole = ChunkedBody().take(rest, data, body.size()) == ChunkedBody::State::Whole;
  return isWhole ? body.size() - rest.size() : body.npos;
}

/// Looks whether `sent` is one answer behind the other to the first of these requests, read as
/// their client reads them.
void requireAnswers(const FuzzServer& server, const std::vector<std::string>& requests,
                    std::string_view sent) {
  bool isLast = false;
  for (std::size_t i = 0; !sent.empty();) {
    server.require(!isLast && i < requests.size(), "nobody is answered who has not asked");
    const std::size_t end = sent.find("\r\n\r\n");
    server.require(sent.starts_with("HTTP/1.1 ") && end != sent.npos, "an answer has a head");
    const std::string_view head = sent.substr(0, end + 2);
    sent.remove_prefix(end + 4);
    if (head.starts_with("HTTP/1.1 100 ")) continue;
    server.require(!valueIn(head, "Date").empty(), "an answer has a date");
    isLast = valueIn(head, "Connection") == "Close";
    const bool hasBody = !requests[i].starts_with("HEAD ") && !head.starts_with("HTTP/1.1 304 ");
    ++i;
    if (!hasBody) continue;
    const std::string length = valueIn(head, "Content-Length");
    const bool isChunked = valueIn(head, "Transfer-Encoding") == "chunked";
    server.require(isLast || isChunked || !length.empty(), "an answer has an end");
    const std::size_t size = isChunked        ? chunkedLength(sent)
                             : length.empty() ? sent.size()
                                              : std::stoul(length);
    server.require(size <= sent.size(), "an answer is as long as it says");
    sent.remove_prefix(size);
  }
}

}  // namespace

void fuzzStandard(std::string_view bytes) {
  FuzzServer server(bytes, Addressing::Standard);
  for (std::string_view left = bytes; !left.empty();) {
    const std::string_view pieces = takePart(left, kClientEnd);
    std::string whole(pieces);
    std::erase(whole, kPieceEnd);
    const std::string sent = server.serve(pieces);
    server.require(sent.find(kSecret) == std::string::npos, "no file is sent that may not be");
    requireAnswers(server, standardMessages(whole), sent);
  }
  server.check();
}

void fuzzRequests(std::string_view bytes) {
  fuzzServer(bytes, Addressing::Own);
}

void fuzzAddresses(std::string_view bytes) {
  fuzzServer(bytes, Addressing::Customary);
}

namespace {

void servePage(FuzzServer& server, std::string_view name, std::string_view page) {
  server.files.put("/base/Server/Scripts/" + std::string(name), std::string(page));
  const std::string target =
      "/" + std::string(name) + "?a=1&b=%41+b&a=2 HTTP/1.1\r\nHost: here\r\n";
  server.serve("GET " + target + "Cookie: c=d; e=f=g\r\n\r\n" + kPieceEnd + "POST " + target +
               "Content-Type: application/x-www-form-urlencoded\r\n"
               "Content-Length: 17\r\n\r\na=1&text=x%0D%0Ay");
  server.check();
}

}  // namespace

void fuzzPage(std::string_view page) {
  FuzzServer server(page);
  servePage(server, "page.qvs", page);
}

void fuzzCustomaryPage(std::string_view page) {
  FuzzServer server(page, Addressing::Customary);
  server.files.put("/base/Server/Scripts/global.asa", std::string(page));
  servePage(server, "page.asp", page);
}

}  // namespace quorvane
