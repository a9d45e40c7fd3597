#include "http/request_handling.h"

#include <exception>
#include <utility>

#include "http/clients.h"
#include "http/clsHTTPParser.h"
#include "http/content_types.h"
#include "http/cookie_jar.h"
#include "http/error_responses.h"
#include "http/header_lines.h"
#include "http/renderings.h"
#include "http/response_heads.h"
#include "http/script_pages.h"
#include "http/serverMod.h"
#include "http/static_files.h"
#include "http/targets.h"
#include "http/wanted.h"
#include "platform/clock.h"
#include "support/clsQVMod.h"
#include "support/clsZipString.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/text.h"
#include "support/visible_text.h"

namespace quorvane {

namespace {

constexpr int kMostRedirections = 32;

/// Requests are logged up to this length at most: a client must not fill the disk by the megabyte.
constexpr std::size_t kMostLoggedBytes = std::size_t{64} * 1024;

/// The parser keeps its text between requests for the next one's use, up to this size.
constexpr std::size_t kMostIdleText = std::size_t{64} * 1024;

std::string extensionName(std::string_view path) {
  const std::string_view extension = paths::extensionOf(path);
  return extension.empty() ? std::string() : upperCase(extension.substr(1));
}

bool isMedia(std::string_view extension) {
  return extension == "MP3" || extension == "WMA" || extension == "WAV";
}

}  // namespace

/// The making of one response, from the parsed request on.
class RequestHandling::Answer {
 public:
  Answer(RequestHandling& handling, int index, RequestClass requestClass, std::string client)
      : handling_(handling),
        services_(handling.services_),
        parts_(handling.parts_),
        parser_(parts_.parser),
        index_(index),
        headOnly_(requestClass == RequestClass::Head),
        client_(std::move(client)),
        wanted_(firstWanted()) {}

  /// Nothing when it comes later.
  std::optional<Response> run();
  /// Whether nothing was done, since a page has to wait for its turn.
  bool waits() const { return waits_; }

 private:
  using Module = std::shared_ptr<const std::string>;

  Wanted firstWanted() const;
  void want(Wanted wanted);
  void nameFile();
  bool isPlayed() const;
  bool locate();
  PageOutcome runPage();
  void follow(const RedirectedPage& page);
  Response pageResponse(FinishedPage page);
  Response pageResponse(AnsweredPage page);
  bool pack(std::string& body) const;
  std::optional<Response> fileResponse();
  Response moduleResponse();
  Response withHead(ResponseHeads::Ordinary head, Body body);
  Response notFound(bool allowed);
  void logRequest();

  RequestHandling& handling_;
  const Services& services_;
  const RequestHandlingParts& parts_;
  clsHTTPParser& parser_;
  const int index_;
  const bool headOnly_;
  const std::string client_;  ///< a copy: the slot may have another client before a page ends

  Wanted wanted_;
  std::string localFile_;  ///< the wanted file's text as asked for
  std::string extension_;  ///< upper case, no dot
  FoundFile found_;        ///< set unless the file comes from a module
  Module module_;          ///< the content when it does
  bool waits_ = false;
};

/// What a file's answer needs of its request. It stands apart from the parser, which may serve
/// others before the answer is made.
struct RequestHandling::FileAnswer {
  StaticFiles::Request request;
  bool isAlias = false;
  bool headOnly = false;
  bool keepAlive = false;
  std::int32_t session = 0;
  std::string cookieLines;
};

std::optional<Response> RequestHandling::Answer::run() {
  for (int redirections = 0; redirections <= kMostRedirections; ++redirections) {
    nameFile();
    if (isPlayed()) {
      want(wanted_.player());
      nameFile();
    }
    if (!isAllowedExtension(localFile_)) return notFound(false);
    if (!locate()) return notFound(true);
    if (extension_ != "QVS") return module_ ? moduleResponse() : fileResponse();
    if (redirections == 0) {
      const Clients::Turn turn = parts_.clients.turnOf(index_);
      waits_ = turn == Clients::Turn::Later;
      if (waits_) return std::nullopt;
      if (turn == Clients::Turn::Never) return Response{};
    }
    PageOutcome outcome = runPage();
    if (auto* page = std::get_if<FinishedPage>(&outcome)) return pageResponse(std::move(*page));
    if (auto* page = std::get_if<AnsweredPage>(&outcome)) return pageResponse(std::move(*page));
    if (auto* page = std::get_if<FlushedPage>(&outcome)) {
      logRequest();
      return Response{{}, std::move(page->rest), false};
    }
    follow(std::get<RedirectedPage>(outcome));
  }
  return notFound(true);
}

Wanted RequestHandling::Answer::firstWanted() const {
  // Any folder at any depth stands for the default document of the document root.
  if (parser_.DocumentTitle().empty()) {
    parser_.setDocumentTitle(services_.state.DefaultDocument);
    parser_.setDocumentPath("/");
    parser_.setDocumentUrl("/" + services_.state.DefaultDocument);
  }
  return Wanted::by(parser_, services_.state, parts_.aliases, services_.clock);
}

/// Pages find in the parser what is wanted of them.
void RequestHandling::Answer::want(Wanted wanted) {
  wanted_ = std::move(wanted);
  parser_.setDocumentTitle(wanted_.title);
  parser_.setDocumentPath(wanted_.path);
}

void RequestHandling::Answer::nameFile() {
  localFile_ = wanted_.file.text();
  extension_ = extensionName(localFile_);
}

void RequestHandling::Answer::follow(const RedirectedPage& page) {
  want(wanted_.redirected(page, services_.state.ScriptsFolder));
  parser_.redirect();
  if (wanted_.query) parser_.setDocumentQueryString(*wanted_.query);
}

/// Sound files asked for with an "id" are played by a page.
bool RequestHandling::Answer::isPlayed() const {
  return isMedia(extension_) && !parser_.RequestVar("id", clsHTTPParser::ByMethod).empty();
}

bool RequestHandling::Answer::locate() {
  module_ = nullptr;
  if (wanted_.file.reach == LocalTarget::Reach::Nowhere) return false;
  if (!services_.state.NoQvm && !parts_.modules.empty()) {
    module_ = parts_.modules.sharedFile(wanted_.document());
    if (module_) return true;
  }
  auto found = targets::locate(services_.files, wanted_.file, services_.state.FollowLinks);
  if (found) found_ = std::move(*found);
  return found.has_value();
}

PageOutcome RequestHandling::Answer::runPage() {
  ScriptPageResult result = parts_.pages.run({module_ ? localFile_ : found_.path,
                                              module_ ? std::string_view(*module_) : "", parser_,
                                              parts_.cookies, parts_.events, index_});
  wanted_.session = result.sessionNumber;
  parser_.setSessionID(result.sessionNumber);
  return std::move(result.outcome);
}

Response RequestHandling::Answer::pageResponse(FinishedPage page) {
  logRequest();
  std::string& headers = page.header;
  if (headers.ends_with("\r\n")) headers.resize(headers.size() - 2);
  if (pack(page.body)) header_lines::add(headers, "Content-encoding", "gzip");
  ResponseHeads::Ordinary head;
  head.extraHeaders = headers;
  head.contentType = handling_.types_->typeOf(localFile_);
  head.cacheControl = "private";
  return withHead(head, std::move(page.body));
}

Response RequestHandling::Answer::pageResponse(AnsweredPage page) {
  logRequest();
  if (ResponseHeads::isBodyless(page.status)) page.body.clear();
  std::string& lines = page.headerLines;
  if (!header_lines::bring(lines, "content-encoding") && pack(page.body)) {
    header_lines::add(lines, "Content-Encoding", "gzip");
  }
  const bool keepAlive = parser_.KeepAlive();
  Response response{
      handling_.heads_->ofPage(page.status, lines, page.body.size(), keepAlive), {}, keepAlive};
  if (!headOnly_) response.body = std::move(page.body);
  return response;
}

/// A page's output, for clients that want it so.
bool RequestHandling::Answer::pack(std::string& body) const {
  return parser_.AcceptGZipEncoding() && services_.state.EncodeDynamic &&
         clsZipString::CompressString(body, clsZipString::kGzip);
}

std::optional<Response> RequestHandling::Answer::fileResponse() {
  logRequest();
  FileAnswer file{
      handling_.staticFiles_->requestFor(std::move(found_), parser_, wanted_.isPublic()),
      wanted_.isAlias,
      headOnly_,
      parser_.KeepAlive(),
      wanted_.session,
      parts_.cookies.changedHeaderLines(handling_.heads_->dates())};
  if (!handling_.staticFiles_->lacksPicture(file.request)) return handling_.fileResponse(file);
  handling_.render(std::move(file), index_, client_);
  return std::nullopt;
}

Response RequestHandling::Answer::moduleResponse() {
  logRequest();
  ResponseHeads::Ordinary head;
  head.contentType = handling_.types_->typeOf(localFile_);
  head.cacheControl = wanted_.isAlias ? "no-cache" : "";
  return withHead(head, module_);
}

/// Completes the head by what every ordinary response carries.
Response RequestHandling::Answer::withHead(ResponseHeads::Ordinary head, Body body) {
  const std::string cookieLines = parts_.cookies.changedHeaderLines(handling_.heads_->dates());
  head.contentLength = bodyLength(body);
  head.keepAlive = parser_.KeepAlive();
  head.sessionNumber = wanted_.session;
  head.cookieLines = cookieLines;
  Response response{handling_.heads_->ordinary(head), {}, head.keepAlive};
  if (!headOnly_) response.body = std::move(body);
  return response;
}

Response RequestHandling::Answer::notFound(bool allowed) {
  services_.log.LogLine(client_ + (allowed ? " > NOT FOUND: " : " > NOT ALLOWED: ") +
                        handling_.shown(wanted_.document()));
  return {error_responses::notFound(*handling_.heads_, paths::fileNameOf(localFile_)), {}, false};
}

void RequestHandling::Answer::logRequest() {
  services_.log.LogLine(client_ + (parser_.formMethod() == 1 ? " > POST " : " > GET ") +
                        handling_.shown(wanted_.document()));
}

Response RequestHandling::fileResponse(const FileAnswer& asked) {
  StaticFiles::Answer file = staticFiles_->answer(asked.request);
  if (file.unsatisfiable) return badRequest();
  const std::string modified = heads_->dates().ofFile(file.file.info.modified);
  ResponseHeads::Ordinary head;
  if (file.partial) head.status = Status::PartialContent;
  head.contentLength = bodyLength(file.body);
  head.extraHeaders = file.headers;
  head.contentType = types_->typeOf(file.file.path);
  head.lastModified = modified;
  head.keepAlive = asked.keepAlive;
  head.cacheControl = asked.isAlias ? "no-cache" : "";
  head.sessionNumber = asked.session;
  head.cookieLines = asked.cookieLines;
  Response response{heads_->ordinary(head), {}, head.keepAlive};
  if (!asked.headOnly) response.body = std::move(file.body);
  return response;
}

/// Has the lacking picture rendered and answers then.
void RequestHandling::render(FileAnswer file, int index, const std::string& address) {
  const Client client = parts_.clients.inSlot(index);
  parts_.clients.answerLater(index);
  const auto asked = std::make_shared<const FileAnswer>(std::move(file));
  const ResizedImages::Wish& wish = *asked->request.picture;
  const auto isNeeded = [this, asked, client] {  // another may have asked for the same meanwhile
    return parts_.clients.isThere(client) && staticFiles_->lacksPicture(asked->request);
  };
  const auto done = [this, asked, client](bool) {
    Response response;
    try {
      if (parts_.clients.isThere(client)) response = fileResponse(*asked);
    } catch (const std::exception& error) {
      services_.log.LogLine(std::string("Request failed: ") + error.what());
    }
    parts_.clients.answer(client, std::move(response));
  };
  renderings_->add(address, {wish.source.path, wish.target, wish.rendering, isNeeded, done});
}

RequestHandling::RequestHandling(const Services& services, const RequestHandlingParts& parts)
    : services_(services),
      parts_(parts),
      heads_(std::make_unique<ResponseHeads>(services.state, services.clock)),
      types_(std::make_unique<ContentTypes>()),
      staticFiles_(std::make_unique<StaticFiles>(services, *types_)),
      renderings_(std::make_unique<Renderings>(parts.loop, services.images)) {}

RequestHandling::~RequestHandling() = default;

std::optional<Response> RequestHandling::dataArrival(int index, SlotRecord& record,
                                                     std::string_view data,
                                                     const std::string& remoteHostIP) {
  using request_collector::Outcome;
  const bool hadToWait = record.isWhole;
  request_collector::Collected collected = request_collector::collect(record, data);
  if (collected.outcome == Outcome::NeedMore) return std::nullopt;
  if (collected.outcome == Outcome::TellToGoOn) return Response{ResponseHeads::goOn(), {}, true};
  const bool complete = collected.outcome == Outcome::Complete;
  if (complete && services_.state.LogHeaders && !hadToWait) logHeaders(collected.request());

  parts_.cookies.clear();
  clsHTTPParser& parser = parts_.parser;
  if (!complete) {
    parser.setHTTPData(collected.request().substr(0, kMostLoggedBytes));
  } else if (collected.direct.empty()) {
    parser.adoptHTTPData(std::move(collected.storage), collected.bodyStart);
  } else {
    parser.setHTTPData(collected.direct, collected.bodyStart);
  }
  std::optional<Response> response;
  if (!complete || !parser.ValidRequest()) {
    logRefused(remoteHostIP);
    response = badRequest();
  } else {
    parser.setRemoteIP(remoteHostIP);
    Answer answer(*this, index, collected.requestClass, remoteHostIP);
    response = answer.run();
    if (answer.waits()) {
      record.pendingText = parser.takeText();
      record.isWhole = true;
    }
  }
  if (parser.HTTPData().size() > kMostIdleText) parser.releaseText();
  return response;
}

/// A client's text for a status line.
std::string RequestHandling::shown(std::string_view text) const {
  return visible(text, services_.state.LogTextLimit);
}

void RequestHandling::logRefused(const std::string& client) {
  const clsHTTPParser& parser = parts_.parser;
  const std::string_view request = parser.HTTPData();
  const std::size_t most =
      services_.state.LogTextLimit ? services_.state.LogTextLimit : kMostLoggedBytes;
  services_.log.LogLine(
      client + " > INVALID HEADER: " + shown(parser.DocumentPath() + parser.DocumentTitle()) +
      "\r\n" + visibleLines(request.substr(0, most)) + (request.size() > most ? "..." : ""));
}

void RequestHandling::logHeaders(std::string_view request) {
  services_.log.LogLine("Header (" + std::to_string(request.size()) + " bytes): " +
                        replaceAll(request.substr(0, kMostLoggedBytes), "\r\n", "||"));
}

Response RequestHandling::badRequest() {
  return {error_responses::badRequest(*heads_), {}, false};
}

}  // namespace quorvane
