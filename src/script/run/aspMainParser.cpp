#include "script/run/aspMainParser.h"

#include <utility>

#include "components/application.h"
#include "http/answer_stream.h"
#include "http/clsHTTPParser.h"
#include "platform/process.h"
#include "script/customary/error_answer.h"
#include "script/objects/aspRequestObj.h"
#include "script/objects/aspResponseObj.h"
#include "script/objects/global_members.h"
#include "script/objects/redirect_marks.h"
#include "script/run/error_page.h"
#include "script/translation/mapped_page.h"
#include "script/translation/page_translator.h"
#include "support/clsWEncode.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

/// What the members usable without an object's name are published under: no script can spell it.
constexpr std::string_view kNoName;

/// The error's text. The one about a line that begins with "=" says how it came to that, because
/// the page's source does not show it.
std::string description(const vbs::ErrorReport& error) {
  const std::size_t start = error.sourceLine.find_first_not_of(" \t");
  if (start == std::string::npos || error.sourceLine[start] != '=') return error.description;
  return error.description +
         " (the line begins with \"=\": code blocks with only a line break between are one)";
}

}  // namespace

/// The objects of one run and their publication.
struct aspMainParser::Published {
  Published(aspMainParser& page)
      : response(vbs::make<aspResponseObj>(
            page.parts_.encoder, page.request_->cookies, page.services_.clock,
            [&page](std::string data, const std::string& header, bool first) {
              page.objResponse_FlushBuffer(std::move(data), header, first);
            })),
        request(vbs::make<aspRequestObj>(page.services_.state, page.parts_.encoder)),
        server(vbs::make<aspServerObj>(page.services_, page.parts_,
                                       static_cast<aspServerObj::Page&>(page))),
        session(page.session_),
        application(page.parts_.application) {
    request->attach(page.request_->parser, page.request_->cookies);
    server->setRequest(page.request_->parser);
    server->setPageFolder(page.pageFolder_);
  }
  ~Published() {
    response->detach();
    request->detach();
    server->detach();
  }
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;

  void addTo(vbs::Engine& engine) {
    engine.addObject("Response", *response, false);
    engine.addObject("Request", *request, false);
    engine.addObject("Server", *server, false);
    engine.addObject("Session", *session, false);
    engine.addObject("QvS", application, false);
    engine.addObject(kNoName, *responseMembers, true);
    engine.addObject(kNoName, *requestMembers, true);
    engine.addObject(kNoName, *serverMembers, true);
    engine.addObject(kNoName, *sessionMembers, true);
    engine.addObject(kNoName, *applicationMembers, true);
  }

  vbs::Ref<aspResponseObj> response;
  vbs::Ref<aspRequestObj> request;
  vbs::Ref<aspServerObj> server;
  vbs::Ref<aspSessionObj> session;
  vbs::Object& application;
  vbs::Ref<GlobalMembers> responseMembers =
      vbs::make<GlobalMembers>(*response, aspResponseObj::kGlobalMembers);
  vbs::Ref<GlobalMembers> requestMembers =
      vbs::make<GlobalMembers>(*request, aspRequestObj::kGlobalMembers);
  vbs::Ref<GlobalMembers> serverMembers =
      vbs::make<GlobalMembers>(*server, aspServerObj::kGlobalMembers);
  vbs::Ref<GlobalMembers> sessionMembers =
      vbs::make<GlobalMembers>(*session, aspSessionObj::kGlobalMembers);
  vbs::Ref<GlobalMembers> applicationMembers =
      vbs::make<GlobalMembers>(application, ApplicationComponent::kGlobalMembers);
};

aspMainParser::aspMainParser(const Services& services, const PageParts& parts, vbs::Limits limits)
    : services_(services), parts_(parts), host_(services), run_(host_, programs_, limits) {}

aspMainParser::~aspMainParser() = default;

void aspMainParser::setURL(std::string path) {
  url_ = std::move(path);
  const std::string native = paths::native(url_);
  pageFolder_ = paths::folderOf(native);
  if (pageFolder_.empty()) {
    pageFolder_ = paths::withSeparator(services_.process.currentFolder());
  }
}

PageOutcome aspMainParser::outcomeOf(const ScriptPageRequest& request,
                                     vbs::Ref<aspSessionObj> session) {
  Reset();
  setRequest(request);
  setURL(request.url);
  setFileData(std::string(request.fileData));
  setSession(std::move(session));
  setSocketIndex(request.socketIndex);
  Run();
  PageOutcome outcome = takeOutcome();
  Reset();
  return outcome;
}

PageOutcome aspMainParser::takeOutcome() {
  if (flushedResponse_) return FlushedPage{std::move(output_)};
  if (auto redirected = redirect_marks::recognise(output_, redirectedTo_))
    return std::move(*redirected);
  return FinishedPage{std::move(responseHeader_), std::move(output_), failed_};
}

void aspMainParser::Reset() {
  url_.clear();
  pageFolder_.clear();
  for (std::string* text : {&fileData_, &output_, &responseHeader_}) {
    std::string().swap(*text);  // gives the memory back, which clear() does not
  }
  flushedResponse_ = false;
  redirectedTo_ = false;
  failed_ = false;
  socketIndex_ = -1;
  failure_.reset();
  request_ = nullptr;
  session_ = {};
}

std::string aspMainParser::strReadFile(const std::string& path) const {
  return services_.files.readAll(path).value_or(std::string());
}

std::u16string aspMainParser::binReadFile(const std::string& path) const {
  const std::string bytes = strReadFile(path);
  std::u16string characters((bytes.size() + 1) / 2, u'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    characters[i / 2] |= static_cast<char16_t>(i % 2 == 0 ? byte : byte << 8);
  }
  return characters;
}

bool aspMainParser::strWriteFile(const std::string& path, std::string_view data) const {
  services_.files.remove(path);
  if (!services_.files.writeAll(path, data)) return false;
  const auto written = services_.files.stat(path);
  return written && written->size == data.size();
}

bool aspMainParser::fileExists(const std::string& path) const {
  return services_.files.stat(path).has_value();
}

bool aspMainParser::Run() {
  if (!session_) session_ = vbs::make<aspSessionObj>(services_.clock);
  host_.setLocale(session_->LCID());
  const std::string program = translate(source(), pageFolder_);

  Published published(*this);
  published_ = &published;
  run_.start();
  auto error = runProgram(program, pageFolder_);
  published_ = nullptr;
  keepSession(error);

  if (error && error->number != kEndOfPage) {
    noteFailure(url_, pageFolder_, *error);
    if (failure_) customary::logError(services_, *failure_);
    fail(*error);
    return false;
  }
  responseHeader_ = published.response->Header();
  flushedResponse_ = published.response->flushed();
  redirectedTo_ = published.response->redirectedTo();
  output_ = published.response->takeBuffer();
  return true;
}

/// What the page has left in its session may be nothing to keep, or there is nowhere to keep it:
/// that is the page's error then, unless it has one.
void aspMainParser::keepSession(std::optional<vbs::ErrorReport>& error) {
  try {
    session_->keep();
  } catch (const vbs::ScriptError& why) {
    if (error && error->number != kEndOfPage) return;
    error.emplace();
    error->number = why.number;
    error->description = why.description;
    error->line = 1;
  }
}

std::string aspMainParser::header(std::string_view name) const {
  return published_ ? std::string(request_->parser.head().header(name)) : std::string();
}

std::string_view aspMainParser::body() const {
  return published_ ? request_->parser.body() : std::string_view();
}

std::string aspMainParser::folder() const {
  return run_.folder();
}

void aspMainParser::write(std::string_view bytes) {
  if (published_) published_->response->XWrite(vbs::Value(bytes));
}

std::chrono::seconds aspMainParser::timeLimit() const {
  return run_.timeLimit();
}

void aspMainParser::setTimeLimit(std::chrono::seconds limit) {
  run_.setTimeLimit(limit);
}

std::optional<vbs::ErrorReport> aspMainParser::runProgram(const std::string& program,
                                                          const std::string& folder) {
  return run_.run(program, folder, [this](vbs::Engine& engine) { published_->addTo(engine); });
}

/// The page is translated once more: one that does not fail shall not pay for the map.
void aspMainParser::noteFailure(const std::string& path, const std::string& folder,
                                const vbs::ErrorReport& error) {
  if (!services_.state.LogPageErrors) return;
  if (failure_ && failure_->number == error.number) return;  // of a page inside this one
  const LineMap lines =
      mapPage({path, path == url_ ? source() : strReadFile(path)}, includesOf(folder)).lines;
  failure_ = customary::pageError(error, lines.place(error.line, error.column), services_.files,
                                  customary::kAnsi);
}

void aspMainParser::fail(const vbs::ErrorReport& error) {
  failed_ = true;
  const clsHTTPParser& parser = request_->parser;
  const auto shown = [&](const std::string& text) {
    return services_.state.EncodeErrors ? parts_.encoder.afText2HTML(text) : text;
  };
  output_ = errorPage(error.number, shown(description(error)),
                      shown(parser.DocumentPath() + parser.DocumentTitle()),
                      std::int64_t{error.line} - 1);
}

std::string aspMainParser::source() const {
  return fileData_.empty() ? strReadFile(url_) : fileData_;
}

IncludeReader aspMainParser::includesOf(const std::string& folder) const {
  return [this, &folder](const std::string& name) {
    return readInclude(services_.files, services_.state.ScriptsFolder, folder, name,
                       services_.state.FollowLinks);
  };
}

std::string aspMainParser::translate(std::string source, const std::string& folder) const {
  return translatePage(expandIncludes(std::move(source), includesOf(folder)));
}

void aspMainParser::objResponse_FlushBuffer(std::string rspData, const std::string& rspHeaderData,
                                            bool rspFirstFlush) {
  if (socketIndex_ < 0) return;
  AnswerStream& stream = request_->stream;
  rspData = rspFirstFlush
                ? stream.begin(request_->parser.SessionID(), rspHeaderData, std::move(rspData))
                : stream.more(std::move(rspData));
  flushedResponse_ = true;  // stays so when the page fails later
  if (!request_->events.vbsParser_Dispatch(socketIndex_, std::move(rspData), false)) endPage();
}

void aspMainParser::objServer_DebugOutput(const std::string& dbgData) {
  request_->events.vbsParser_DebugOutput(dbgData);
}

void aspMainParser::endPage() {
  published_->response->finish();
  throw vbs::EndOfRun{};
}

std::optional<std::string> aspMainParser::pageFile(std::string_view target) const {
  if (!equalsNoCase(paths::extensionOf(target), ".qvs")) return std::nullopt;
  const auto path = RootedPath::ofPage(services_.state.ScriptsFolder, run_.folder(), target);
  return path ? findBelow(services_.files, *path, services_.state.FollowLinks) : std::nullopt;
}

void aspMainParser::execute(const std::string& target) {
  const auto file = pageFile(target);
  if (!file) vbs::throwError(vbs::ErrorCode::FileNotFound, target);
  if (run_.depth() > PageRun::kMostNested) vbs::throwError(vbs::ErrorCode::OutOfStackSpace);
  const std::string folder(paths::folderOf(*file));
  failure_.reset();
  const auto error = runProgram(translate(strReadFile(*file), folder), folder);
  if (!error) return;
  if (error->number == kEndOfPage) endPage();
  noteFailure(*file, folder, *error);
  throw vbs::ScriptError{error->number, error->description, error->source, {}, 0};
}

}  // namespace quorvane
