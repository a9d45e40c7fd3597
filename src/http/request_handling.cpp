#include "http/request_handling.h"

#include <utility>

#include "http/clsHTTPParser.h"
#include "http/content_types.h"
#include "http/cookie_jar.h"
#include "http/error_responses.h"
#include "http/http_date.h"
#include "http/response_head.h"
#include "http/script_pages.h"
#include "http/serverMod.h"
#include "http/static_files.h"
#include "http/targets.h"
#include "platform/clock.h"
#include "support/clsQVMod.h"
#include "support/clsZipString.h"
#include "support/file_aliases.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/text.h"

namespace quorvane {

using namespace std::string_view_literals;

namespace {

constexpr std::string_view kAliasPrefix = "filebin$";
constexpr std::string_view kPlayerPage = "playmedia.qvs";
constexpr std::string_view kRedirectMark = "\0[$REDIR$]\0"sv;
constexpr std::string_view kRedirectToMark = "\0[$REDIRTO$]\0"sv;
constexpr int kMostRedirections = 32;
constexpr const char* kGoOn = "HTTP/1.1 100 Continue\r\n\r\n";

/// Requests are logged up to this length: a client must not fill the disk by the megabyte.
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
        parts_(handling.parts_),
        parser_(parts_.parser),
        index_(index),
        headOnly_(requestClass == RequestClass::Head),
        client_(std::move(client)) {}

  Response run();

 private:
  using Module = std::shared_ptr<const std::string>;

  std::string documentName() const { return parser_.DocumentPath() + parser_.DocumentTitle(); }

  void chooseTarget();
  void choosePlayer();
  bool locate();
  bool followRedirection(std::string_view output);
  ScriptPageResult runPage();
  Response pageResponse(ScriptPageResult page);
  Response fileResponse();
  Response moduleResponse();
  Response withHead(ResponseHead head, Body body);
  Response notFound(bool allowed);
  void logRequest();

  RequestHandling& handling_;
  const RequestHandlingParts& parts_;
  clsHTTPParser& parser_;
  const int index_;
  const bool headOnly_;
  const std::string client_;  ///< a copy: the slot may have another client before a page ends

  bool keepAlive_ = true;
  bool aliasDownload_ = false;
  LocalTarget target_;
  std::string localFile_;  ///< the target's text as asked for
  std::string extension_;  ///< upper case, no dot
  FoundFile found_;        ///< set unless the file comes from a module
  Module module_;          ///< the content when it does
};

Response RequestHandling::Answer::run() {
  keepAlive_ = parser_.KeepAlive();
  chooseTarget();
  for (int redirections = 0; redirections <= kMostRedirections; ++redirections) {
    localFile_ = target_.text();
    extension_ = extensionName(localFile_);
    if (isMedia(extension_)) choosePlayer();
    if (!isAllowedExtension(localFile_)) return notFound(false);
    if (!locate()) return notFound(true);
    if (extension_ != "QVS") return module_ ? moduleResponse() : fileResponse();
    ScriptPageResult page = runPage();
    if (page.flushedResponse || !followRedirection(page.output)) {
      return pageResponse(std::move(page));
    }
  }
  return notFound(true);
}

void RequestHandling::Answer::chooseTarget() {
  // Any folder at any depth stands for the default document of the document root.
  if (parser_.DocumentTitle().empty()) {
    parser_.setDocumentTitle(parts_.state.DefaultDocument);
    parser_.setDocumentPath("/");
    parser_.setDocumentUrl("/" + parts_.state.DefaultDocument);
  }
  const std::string& title = parser_.DocumentTitle();
  aliasDownload_ = startsWithNoCase(title, kAliasPrefix);
  if (aliasDownload_) {
    const auto path = parts_.aliases.pathOf(title.substr(kAliasPrefix.size()), parts_.clock.now());
    target_ = LocalTarget::anywhere(parts_.state.ScriptsFolder, path.value_or(""));
  } else {
    target_ = LocalTarget::inside(parts_.state.ScriptsFolder, documentName());
  }
}

/// Sound files asked for with an "id" are played by a page in their folder.
void RequestHandling::Answer::choosePlayer() {
  if (parser_.RequestVar("id", clsHTTPParser::ByMethod).empty()) return;
  parser_.setDocumentTitle(std::string(kPlayerPage));
  target_.path = std::string(paths::folderOf(target_.path)).append(kPlayerPage);
  localFile_ = target_.text();
  extension_ = "QVS";
}

bool RequestHandling::Answer::locate() {
  module_ = nullptr;
  if (!parts_.state.NoQvm && !parts_.modules.empty()) {
    module_ = parts_.modules.sharedFile(documentName());
    if (module_) return true;
  }
  auto found = targets::locate(parts_.files, target_);
  if (found) found_ = std::move(*found);
  return found.has_value();
}

ScriptPageResult RequestHandling::Answer::runPage() {
  const ScriptPageRequest request{module_ ? localFile_ : found_.path, module_ ? *module_ : "",
                                  parser_, parts_.cookies, index_};
  ScriptPageResult page = parts_.pages.run(request);
  parser_.setSessionID(page.sessionNumber);
  return page;
}

/// A page whose output begins with a marker names another file to serve in its place, which may
/// have a query string of its own. False when it doesn't.
bool RequestHandling::Answer::followRedirection(std::string_view output) {
  const bool isLocal = output.starts_with(kRedirectToMark);
  if (!isLocal && !output.starts_with(kRedirectMark)) return false;
  parser_.ClearVars();
  output.remove_prefix(isLocal ? kRedirectToMark.size() : kRedirectMark.size());
  std::string_view named = trimBlanks(output);
  const std::size_t question = isLocal ? std::string_view::npos : named.find('?');
  if (question != std::string_view::npos) {
    parser_.setDocumentQueryString(std::string(named.substr(question + 1)));
    named = named.substr(0, question);
  }
  std::string goal = replaceAll(named, "\\", "/");
  if (!isLocal && !goal.starts_with('/')) goal.insert(goal.begin(), '/');
  parser_.setDocumentTitle(std::string(paths::fileNameOf(goal)));
  parser_.setDocumentPath(std::string(paths::folderOf(goal)));
  const std::string& root = parts_.state.ScriptsFolder;
  target_ = isLocal ? LocalTarget::anywhere(root, goal) : LocalTarget::inside(root, goal);
  return true;
}

Response RequestHandling::Answer::pageResponse(ScriptPageResult page) {
  logRequest();
  if (page.flushedResponse) return {{}, std::move(page.output), false};
  std::string headers = std::move(page.responseHeader);
  if (headers.ends_with("\r\n")) headers.resize(headers.size() - 2);
  if (parser_.AcceptGZipEncoding() && parts_.state.EncodeDynamic &&
      parts_.zip.CompressString(page.output, clsZipString::kGzip)) {
    headers += headers.empty() ? "Content-encoding: gzip" : "\r\nContent-encoding: gzip";
  }
  ResponseHead head;
  head.extraHeaders = headers;
  head.contentType = handling_.types_->typeOf(localFile_);
  head.cacheControl = "private";
  return withHead(head, std::move(page.output));
}

Response RequestHandling::Answer::fileResponse() {
  StaticFiles::Answer file = handling_.staticFiles_->answer({found_, parser_, aliasDownload_});
  logRequest();
  if (file.unsatisfiable) return handling_.badRequest();
  const std::string modified = handling_.dates_->ofFile(file.file.info.modified);
  ResponseHead head;
  head.partial = file.partial;
  head.extraHeaders = file.headers;
  head.contentType = handling_.types_->typeOf(file.file.path);
  head.lastModified = modified;
  head.cacheControl = aliasDownload_ ? "no-cache" : "";
  return withHead(head, std::move(file.body));
}

Response RequestHandling::Answer::moduleResponse() {
  logRequest();
  ResponseHead head;
  head.contentType = handling_.types_->typeOf(localFile_);
  head.cacheControl = aliasDownload_ ? "no-cache" : "";
  return withHead(head, module_);
}

/// Completes the head by what every ordinary response carries.
Response RequestHandling::Answer::withHead(ResponseHead head, Body body) {
  const std::string cookieLines = parts_.cookies.changedHeaderLines(*handling_.dates_);
  head.contentLength = bodyLength(body);
  head.server = handling_.serverName_;
  head.keepAlive = keepAlive_;
  head.sessionNumber = parser_.SessionID();
  head.cookieLines = cookieLines;
  head.date = handling_.dates_->now();
  Response response{head.text(), {}, keepAlive_};
  if (!headOnly_) response.body = std::move(body);
  return response;
}

Response RequestHandling::Answer::notFound(bool allowed) {
  parts_.log.LogLine(client_ + (allowed ? " > NOT FOUND: " : " > NOT ALLOWED: ") + documentName());
  return {error_responses::notFound(paths::fileNameOf(localFile_), handling_.dates_->now(),
                                    handling_.serverName_),
          {},
          false};
}

void RequestHandling::Answer::logRequest() {
  parts_.log.LogLine(client_ + (parser_.formMethod() == 1 ? " > POST " : " > GET ") +
                     documentName());
}

RequestHandling::RequestHandling(const RequestHandlingParts& parts)
    : parts_(parts),
      serverName_(quorvane::serverName(parts.state)),
      dates_(std::make_unique<HttpDates>(parts.clock)),
      types_(std::make_unique<ContentTypes>()),
      staticFiles_(std::make_unique<StaticFiles>(parts.state, parts.files, parts.clock, parts.zip,
                                                 parts.random, *types_, parts.images)) {}

RequestHandling::~RequestHandling() = default;

std::optional<Response> RequestHandling::dataArrival(int index, SlotRecord& record,
                                                     std::string_view data,
                                                     const std::string& remoteHostIP) {
  using request_collector::Outcome;
  request_collector::Collected collected = request_collector::collect(record, data);
  if (collected.outcome == Outcome::NeedMore) return std::nullopt;
  if (collected.outcome == Outcome::TellToGoOn) return Response{kGoOn, {}, true};
  const bool complete = collected.outcome == Outcome::Complete;
  if (complete && parts_.state.LogHeaders) logHeaders(collected.request());

  parts_.cookies.clear();
  clsHTTPParser& parser = parts_.parser;
  if (!complete) {
    parser.setHTTPData(collected.request().substr(0, kMostLoggedBytes));
  } else if (collected.direct.empty()) {
    parser.adoptHTTPData(std::move(collected.storage), collected.bodyStart);
  } else {
    parser.setHTTPData(collected.direct, collected.bodyStart);
  }
  Response response;
  if (!complete || !parser.ValidRequest()) {
    parts_.log.LogLine(remoteHostIP + " > INVALID HEADER: " + parser.DocumentPath() +
                       parser.DocumentTitle() + "\r\n" +
                       parser.HTTPData().substr(0, kMostLoggedBytes));
    response = badRequest();
  } else {
    parser.setRemoteIP(remoteHostIP);
    response = Answer(*this, index, collected.requestClass, remoteHostIP).run();
  }
  if (parser.HTTPData().size() > kMostIdleText) parser.releaseText();
  return response;
}

void RequestHandling::logHeaders(std::string_view request) {
  parts_.log.LogLine("Header (" + std::to_string(request.size()) +
                     " bytes): " + replaceAll(request.substr(0, kMostLoggedBytes), "\r\n", "||"));
}

Response RequestHandling::badRequest() {
  return {error_responses::badRequest(dates_->now(), serverName_), {}, false};
}

}  // namespace quorvane
