#include "http/request_handling.h"

#include <exception>
#include <utility>

#include "http/addresses.h"
#include "http/answer_stream.h"
#include "http/clients.h"
#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "http/error_responses.h"
#include "http/header_lines.h"
#include "http/protocol.h"
#include "http/response_heads.h"
#include "http/script_pages.h"
#include "http/side_work.h"
#include "platform/clock.h"
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

constexpr std::string_view kMovedPage =
    "<html><head><title>Document moved</title></head><body><h1>Document moved</h1></body></html>";

}  // namespace

/// The making of one response, from the parsed request on.
class RequestHandling::Answer {
 public:
  Answer(RequestHandling& handling, int index, RequestClass requestClass, std::string client)
      : handling_(handling),
        services_(handling.services_),
        parts_(handling.parts_),
        parser_(parts_.parser),
        protocol_(*handling_.protocol_),
        heads_(protocol_.heads()),
        stream_(heads_, protocol_.framingFor(parser_), parser_.KeepAlive()),
        index_(index),
        headOnly_(requestClass == RequestClass::Head),
        client_(std::move(client)),
        wanted_(handling.addresses_->asked(parser_)) {}

  /// Nothing when it comes later.
  std::optional<Response> run();
  /// Whether nothing was done, since a page has to wait for its turn.
  bool waits() const { return waits_; }

 private:
  void want(Wanted wanted);
  void locate();
  bool standIn();
  bool takesTurn();
  PageOutcome runPage();
  void follow(const RedirectedPage& page);
  Response pageResponse(FinishedPage page);
  Response pageResponse(AnsweredPage page);
  std::optional<Response> fileResponse();
  Response moved();
  Response withHead(ResponseHeads::Ordinary head, Body body);
  Response notFound();
  std::string missingLine() const;
  void logRequest();

  RequestHandling& handling_;
  const Services& services_;
  const RequestHandlingParts& parts_;
  clsHTTPParser& parser_;
  Protocol& protocol_;
  ResponseHeads& heads_;
  AnswerStream stream_;  ///< of a page that sends its answer in parts
  const int index_;
  const bool headOnly_;
  const std::string client_;  ///< a copy: the slot may have another client before a page ends

  Wanted wanted_;
  Place place_;              ///< of what is wanted
  std::string localFile_;    ///< the wanted file's text as asked for
  bool standsIn_ = false;    ///< a page has been asked for what is missing
  std::string missingLine_;  ///< of the log, until that page runs
  bool hasTurn_ = false;
  bool waits_ = false;
};

std::optional<Response> RequestHandling::Answer::run() {
  for (int redirections = 0; redirections <= kMostRedirections; ++redirections) {
    locate();
    if (auto answer = protocol_.byMethod(parser_, place_)) {
      logRequest();
      return answer;
    }
    if (!place_.isThere() && !standIn()) return notFound();
    if (place_.kind == Place::Kind::Moved) return moved();
    if (place_.kind == Place::Kind::File) return fileResponse();
    if (!takesTurn()) return waits_ ? std::nullopt : std::optional(Response{});
    PageOutcome outcome = runPage();
    if (auto* page = std::get_if<FinishedPage>(&outcome)) return pageResponse(std::move(*page));
    if (auto* page = std::get_if<AnsweredPage>(&outcome)) return pageResponse(std::move(*page));
    if (auto* page = std::get_if<FlushedPage>(&outcome)) {
      logRequest();
      return stream_.end(std::move(page->rest));
    }
    follow(std::get<RedirectedPage>(outcome));
  }
  return notFound();
}

void RequestHandling::Answer::locate() {
  place_ = handling_.addresses_->placeOf(wanted_, parser_);
  localFile_ = wanted_.file.text();
}

/// Lets a page take over for what is not there: once, since it may name what is missing too.
bool RequestHandling::Answer::standIn() {
  if (std::exchange(standsIn_, true)) return false;
  auto page = handling_.addresses_->standIn(wanted_, parser_);
  if (!page) return false;
  Place place = handling_.addresses_->placeOf(*page, parser_);
  if (place.kind != Place::Kind::Page) return false;
  missingLine_ = missingLine();
  want(std::move(*page));
  place_ = std::move(place);
  localFile_ = wanted_.file.text();
  if (wanted_.query) parser_.setDocumentQueryString(*wanted_.query);
  return true;
}

/// Asks for it once, however many pages follow.
bool RequestHandling::Answer::takesTurn() {
  if (hasTurn_) return true;
  const Clients::Turn turn = parts_.clients.turnOf(index_);
  waits_ = turn == Clients::Turn::Later;
  hasTurn_ = turn == Clients::Turn::Now;
  return hasTurn_;
}

/// Pages find in the parser what is wanted of them.
void RequestHandling::Answer::want(Wanted wanted) {
  wanted_ = std::move(wanted);
  wanted_.tell(parser_);
}

void RequestHandling::Answer::follow(const RedirectedPage& page) {
  want(wanted_.redirected(page, services_.state.ScriptsFolder));
  parser_.redirect();
  if (wanted_.query) parser_.setDocumentQueryString(*wanted_.query);
}

PageOutcome RequestHandling::Answer::runPage() {
  if (!missingLine_.empty()) services_.log.LogLine(std::exchange(missingLine_, {}));
  const auto& module = place_.module;
  ScriptPageResult result = parts_.pages.run({module ? localFile_ : place_.file.path,
                                              module ? std::string_view(*module) : "", parser_,
                                              parts_.cookies, parts_.events, stream_, index_});
  wanted_.session = result.sessionNumber;
  parser_.setSessionID(result.sessionNumber);
  return std::move(result.outcome);
}

Response RequestHandling::Answer::pageResponse(FinishedPage page) {
  logRequest();
  std::string& headers = page.header;
  if (headers.ends_with("\r\n")) headers.resize(headers.size() - 2);
  const auto coding = handling_.representations_->pack(parser_, headers, page.body);
  if (!coding.empty()) header_lines::add(headers, "Content-encoding", coding);
  ResponseHeads::Ordinary head;
  head.status = protocol_.statusOf(page.failed);
  head.extraHeaders = headers;
  head.contentType = handling_.addresses_->types().typeOf(localFile_);
  head.cacheControl = "private";
  return withHead(head, std::move(page.body));
}

Response RequestHandling::Answer::pageResponse(AnsweredPage page) {
  logRequest();
  if (ResponseHeads::isBodyless(page.status)) page.body.clear();
  std::string& lines = page.headerLines;
  if (!header_lines::bring(lines, "content-encoding")) {
    const auto coding = handling_.representations_->pack(parser_, lines, page.body);
    if (!coding.empty()) header_lines::add(lines, "Content-Encoding", coding);
  }
  const bool keepAlive = parser_.KeepAlive();
  Response response{heads_.ofPage(page.status, lines, page.body.size(), keepAlive), {}, keepAlive};
  if (!headOnly_) response.body = std::move(page.body);
  return response;
}

std::optional<Response> RequestHandling::Answer::fileResponse() {
  logRequest();
  Representations& representations = *handling_.representations_;
  FoundFile file = place_.module ? FoundFile{localFile_, {}} : std::move(place_.file);
  auto request = representations.requestFor(std::move(file), parser_, wanted_.isPublic());
  request.module = std::move(place_.module);
  request.isAlias = wanted_.isAlias;
  request.isOfPage = hasTurn_;
  request.headOnly = headOnly_;
  request.keepAlive = parser_.KeepAlive();
  request.session = wanted_.session;
  request.cookieLines = parts_.cookies.changedHeaderLines(heads_.dates());
  auto making = representations.lacking(request);
  if (!making) return representations.answer(request);
  handling_.prepare(std::move(request), std::move(making), index_, client_);
  return std::nullopt;
}

/// Completes the head by what every ordinary response carries.
Response RequestHandling::Answer::withHead(ResponseHeads::Ordinary head, Body body) {
  const std::string cookieLines = parts_.cookies.changedHeaderLines(heads_.dates());
  head.contentLength = bodyLength(body);
  head.keepAlive = parser_.KeepAlive();
  head.sessionNumber = wanted_.session;
  head.cookieLines = cookieLines;
  Response response{heads_.ordinary(head), {}, head.keepAlive};
  if (!headOnly_) response.body = std::move(body);
  return response;
}

/// Sends the client to where the wanted folder is.
Response RequestHandling::Answer::moved() {
  AnsweredPage page{"301 Moved Permanently", "Content-Type: text/html", std::string(kMovedPage)};
  header_lines::add(page.headerLines, "Location", place_.address);
  return pageResponse(std::move(page));
}

Response RequestHandling::Answer::notFound() {
  services_.log.LogLine(missingLine());
  const std::string name = handling_.addresses_->missingName(localFile_, parser_);
  return protocol_.missing(parser_, place_, name);
}

std::string RequestHandling::Answer::missingLine() const {
  const bool refused = place_.kind == Place::Kind::Refused;
  return client_ + (refused ? " > NOT ALLOWED: " : " > NOT FOUND: ") +
         handling_.shown(wanted_.document());
}

void RequestHandling::Answer::logRequest() {
  services_.log.LogLine(client_ + (parser_.formMethod() == 1 ? " > POST " : " > GET ") +
                        handling_.shown(wanted_.document()));
}

/// Has what is lacking made and answers then.
void RequestHandling::prepare(Representations::Request request, Making making, int index,
                              const std::string& address) {
  const Client client = parts_.clients.inSlot(index);
  parts_.clients.answerLater(index);
  const auto asked = std::make_shared<const Representations::Request>(std::move(request));
  const auto isNeeded = [this, asked, client] {  // another may have asked for the same meanwhile
    return parts_.clients.isThere(client) && representations_->lacking(*asked);
  };
  const auto done = [this, asked, client] {
    Response response;
    try {
      if (parts_.clients.isThere(client)) response = representations_->answer(*asked);
    } catch (const std::exception& error) {
      services_.log.LogLine(std::string("Request failed: ") + error.what());
      if (auto said = protocol_->givenUp(Status::InternalServerError)) response = std::move(*said);
    }
    parts_.clients.answer(client, std::move(response));
  };
  sideWork_->add(address, {std::move(making), isNeeded, done});
}

RequestHandling::RequestHandling(const Services& services, const RequestHandlingParts& parts)
    : services_(services),
      parts_(parts),
      protocol_(makeProtocol(services.state, services.clock)),
      addresses_(makeAddresses({services, parts.modules, parts.aliases})),
      representations_(makeRepresentations({services, addresses_->types(), protocol_->heads()})),
      sideWork_(std::make_unique<SideWork>(parts.loop)) {}

RequestHandling::~RequestHandling() = default;

std::optional<Response> RequestHandling::dataArrival(int index, SlotRecord& record,
                                                     std::string_view data,
                                                     const std::string& remoteHostIP) {
  using request_collector::Outcome;
  const bool hadToWait = record.isWhole;
  request_collector::Collected collected = protocol_->collect(record, data);
  if (collected.outcome == Outcome::NeedMore) return std::nullopt;
  if (collected.outcome == Outcome::TellToGoOn) return Response{ResponseHeads::goOn(), {}, true};
  const bool complete = collected.outcome == Outcome::Complete;
  if (complete && services_.state.LogHeaders && !hadToWait) logHeaders(collected.request());

  parts_.cookies.clear();
  clsHTTPParser& parser = parts_.parser;
  if (!complete) {
    parser.setHTTPData(collected.request().substr(0, kMostLoggedBytes));
  } else {
    protocol_->parse(collected, parser);
  }
  std::optional<Response> response;
  if (!complete || !parser.ValidRequest()) {
    logRefused(remoteHostIP);
    response = protocol_->refusal(collected);
  } else if (Visitor visitor{remoteHostIP, false, {}, 0}; auto refused = refusal(index, visitor)) {
    response = std::move(refused);
  } else {
    Answer answer(*this, index, collected.requestClass, visitor.address);
    parser.setVisitor(std::move(visitor));
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

/// The answer to a client who may not ask, or of whom it is not clear who it is.
std::optional<Response> RequestHandling::refusal(int index, Visitor& visitor) {
  using Admission = Clients::Admission;
  const Admission admission = parts_.clients.admit(index, parts_.parser.head(), visitor);
  if (admission == Admission::Granted) return std::nullopt;
  const bool isUnclear = admission == Admission::Unclear;
  if (auto said = protocol_->givenUp(isUnclear ? Status::BadRequest : Status::Forbidden)) {
    if (parts_.parser.head().method() == "HEAD") said->body = {};
    return said;
  }
  if (isUnclear) return protocol_->refusal({});
  return Response{error_responses::forbidden(protocol_->heads()), {}, false};
}

}  // namespace quorvane
