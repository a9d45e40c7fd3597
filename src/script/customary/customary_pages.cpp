#include "script/customary/customary_pages.h"

#include <array>
#include <utility>

#include "http/answer_stream.h"
#include "http/clsHTTPParser.h"
#include "http/header_lines.h"
#include "script/customary/error_answer.h"
#include "script/customary/failure.h"
#include "script/customary/page_script.h"
#include "script/customary/request_object.h"
#include "script/customary/server_object.h"
#include "script/customary/type_library_names.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane::customary {

namespace {

/// What names usable without an object are published under: no script can spell it.
constexpr std::string_view kNoName;

/// Enough of a page to see its directive.
constexpr std::size_t kFirstBytes = 64;

}  // namespace

/// The objects of one run.
struct CustomaryPages::Objects {
  explicit Objects(CustomaryPages& pages)
      : owner(pages),
        response(
            vbs::make<ResponseObject>(pages, pages, pages.services_.clock, pages.services_.log)),
        request(vbs::make<RequestObject>(pages.services_.state, pages.request_->parser, pages)),
        server(vbs::make<ServerObject>(pages.services_, pages)),
        session(pages.site_.session(
            pages, request->cookie(Site::kSessionCookie).value_or(std::string()))) {
    owner.objects_ = this;
  }
  ~Objects() {
    owner.objects_ = nullptr;
    response->detach();
    request->detach();
    server->detach();
    session->detach();
  }
  Objects(const Objects&) = delete;
  Objects& operator=(const Objects&) = delete;

  std::array<PublishedObject, 4> all() {
    return {{{"Response", response.get()},
             {"Request", request.get()},
             {"Server", server.get()},
             {"ObjectContext", context.get()}}};
  }

  CustomaryPages& owner;
  vbs::Ref<ResponseObject> response;
  vbs::Ref<RequestObject> request;
  vbs::Ref<ServerObject> server;
  vbs::Ref<SessionObject> session;
  vbs::Ref<TransactionObject> context = vbs::make<TransactionObject>();
};

CustomaryPages::CustomaryPages(const Services& services, const PageParts& parts,
                               vbs::Ref<SharedValues> shared, Keeping& keeping, vbs::Limits limits)
    : services_(services),
      parts_(parts),
      host_(services_),
      store_(services_),
      site_(
          services_, programs_, std::move(shared), keeping,
          [this](const std::string& path, const std::string& text) {
            return store_.scriptBlocks(path, text);
          },
          limits),
      run_(host_, programs_, limits) {
  services_.page = this;
}

CustomaryPages::~CustomaryPages() = default;

bool CustomaryPages::takes(const ScriptPageRequest& request) const {
  const std::int32_t chosen = services_.state.Customary;
  if (chosen != 1) return chosen == 2;
  if (!request.fileData.empty()) return beginsWithDirective(request.fileData);
  const auto file = services_.files.open(request.url);
  if (!file) return false;
  std::array<char, kFirstBytes> bytes{};
  return beginsWithDirective({bytes.data(), file->read(0, bytes.data(), bytes.size())});
}

PageOutcome CustomaryPages::outcomeOf(const ScriptPageRequest& request) {
  request_ = &request;
  lastError_ = {};
  inner_.reset();
  mayUseSession_ = false;
  codePage_ = services_.state.PageCodePage;
  site_.open();
  run_.start();
  const PageStore::Program page =
      request.fileData.empty() ? store_.get(request.url) : store_.of(request.url, request.fileData);
  Objects objects(*this);
  if (page) prepare(*page, *objects.session);
  runRequest(page);
  closeSession();
  return answer();
}

/// What the page has left in its session may be nothing to keep, or there is nowhere to keep it.
void CustomaryPages::closeSession() {
  try {
    site_.close(*objects_->session);
  } catch (const vbs::ScriptError& error) {
    answerLost(error);
  }
}

void CustomaryPages::answerLost(const vbs::ScriptError& error) {
  PageError shown = faultOf({error.description, {request_->url}}, kAnsi);
  shown.number = error.number;
  answerError(shown, request_->url);
}

/// The code page and the locale that the page begins with: its own, else its session's.
void CustomaryPages::prepare(const PageProgram& page, const SessionObject& session) {
  const Session* kept = session.session().get();
  if (page.codePage) {
    codePage_ = *page.codePage;
  } else if (kept && kept->codePage != 0) {
    codePage_ = kept->codePage;
  }
  host_.setLocale(page.lcid.value_or(kept ? kept->locale : 0));
}

void CustomaryPages::runRequest(const PageStore::Program& page) {
  if (!page)
    return answerError(faultOf({"The page can't be read", {request_->url}}, kAnsi), request_->url);
  try {
    runWithSession(page);
  } catch (const vbs::ScriptError& error) {
    answerLost(error);
  }
}

void CustomaryPages::runWithSession(const PageStore::Program& page) {
  if (page->usesSession) {
    const auto seen = objects_->all();
    site_.startSession(objects_->session, seen);
    prepare(*page, *objects_->session);  // Session_OnStart may have chosen others
  } else {
    objects_->session->refuse();
  }
  if (objects_->response->isEnded()) return;
  if (const auto error = runPage(page, request_->url)) answerError(*error, request_->url);
}

std::optional<PageError> CustomaryPages::runPage(const PageStore::Program& page,
                                                 const std::string& path) {
  if (page->fault) return faultOf(*page->fault, codePageOf(*page));
  mayUseSession_ |= page->mentionsSession;
  const auto output = vbs::make<OutputNames>(*objects_->response, page->texts);
  const std::string folder(paths::folderOf(path));
  vbs::Ref<TypeLibraryNames> constants;
  if (page->namesTypeLibrary) constants = vbs::make<TypeLibraryNames>();
  const auto script = scriptOf(*page, output.get());
  const auto report = run_.run(page->program, folder, [&](vbs::Engine& engine) {
    const auto add = [&](std::string_view name, vbs::Object& object, bool globalMembers) {
      engine.addObject(name, object, globalMembers);
      if (script) script->addObject(name, object, globalMembers);
    };
    for (const PublishedObject& object : objects_->all()) add(object.name, *object.object, false);
    add(kNoName, *output, true);
    site_.publish(add, objects_->session);
    site_.publish(add, page->objects);
    if (constants) add(kNoName, *constants, true);
    if (script) script->join(engine);
  });
  if (!report) return std::nullopt;
  if (inner_ && inner_->number == report->number) return std::exchange(inner_, std::nullopt);
  return pageError(*report, placeOf(*report, *page, script.get()), services_.files,
                   codePageOf(*page));
}

/// Of the page's files; what goes out may be in another one.
std::int32_t CustomaryPages::codePageOf(const PageProgram& page) const {
  return page.codePage.value_or(services_.state.PageCodePage);
}

PageError CustomaryPages::faultOf(const PageProgram::Fault& fault, std::int32_t codePage) const {
  PageError error;
  error.number = kObjectFailed;
  error.category = vbs::String("Quorvane");
  error.description = vbs::String(fault.text);
  error.file = vbs::String(fault.place.file);
  if (fault.place.line > 0) error.line = static_cast<std::int32_t>(fault.place.line);
  if (fault.place.column > 0) error.column = static_cast<std::int32_t>(fault.place.column);
  error.source = sourceLine(services_.files, fault.place, codePage);
  return error;
}

/// What has been written goes, unless it is on its way already.
void CustomaryPages::answerError(const PageError& error, const std::string& path) {
  logError(services_, error);
  ResponseObject& response = *objects_->response;
  if (!response.isSent()) {
    response.clear();
    response.setStatus("500 Internal Server Error");
    if (runErrorPage(error, path)) return;
    response.clear();
  }
  response.writeBytes(
      errorHtml(error, services_.state.ErrorDetail ? &services_.state.ScriptsFolder : nullptr));
}

bool CustomaryPages::runErrorPage(const PageError& error, const std::string& path) {
  const std::string& wanted = services_.state.ErrorPage;
  if (wanted.empty() || objects_->response->isEnded()) return false;
  const auto file = store_.find(services_.state.ScriptsFolder, wanted);
  if (!file || *file == path) return false;
  const PageStore::Program page = store_.get(*file);
  if (!page) return false;
  lastError_ = error;
  const auto failed = runPage(page, *file);
  if (failed) logError(services_, *failed);
  return !failed;
}

/// The page's own, and the cookie of a session that the browser does not know yet.
std::string CustomaryPages::headerLines() {
  const SessionObject& session = *objects_->session;
  std::string lines = objects_->response->headerLines();
  if (session.isNew()) {
    header_lines::add(
        lines, "Set-Cookie",
        std::string(Site::kSessionCookie) + '=' + session.session()->id + "; path=/; HttpOnly");
  }
  return lines;
}

PageOutcome CustomaryPages::answer() {
  ResponseObject& response = *objects_->response;
  if (response.isSent()) return FlushedPage{response.takeBody()};
  std::string lines = headerLines();
  return AnsweredPage{response.status(), std::move(lines), response.takeBody()};
}

void CustomaryPages::send(std::string data, bool first) {
  if (request_->socketIndex < 0) return;
  if (first) {
    // Later there is no way to tell the browser.
    SessionObject& session = *objects_->session;
    if (mayUseSession_ && !session.isRefused()) session.begin();
    data = request_->stream.begin(objects_->response->status(), headerLines(), std::move(data));
  } else {
    data = request_->stream.more(std::move(data));
  }
  if (request_->events.vbsParser_Dispatch(request_->socketIndex, std::move(data), false)) return;
  objects_->response->end();
  throw vbs::EndOfRun{};
}

void CustomaryPages::execute(const std::string& target) {
  if (run_.depth() > PageRun::kMostNested) vbs::throwError(vbs::ErrorCode::OutOfStackSpace);
  const auto file = store_.find(folder(), target);
  const PageStore::Program page = file ? store_.get(*file) : nullptr;
  if (!page) vbs::throwError(vbs::ErrorCode::FileNotFound, target);
  inner_.reset();
  if (auto error = runPage(page, *file)) {
    vbs::ScriptError thrown;
    thrown.number = error->number;
    thrown.description = error->description.narrow();
    thrown.source = error->category.narrow();
    inner_ = std::move(error);
    throw thrown;
  }
  if (objects_->response->isEnded()) throw vbs::EndOfRun{};
}

void CustomaryPages::transfer(const std::string& target) {
  execute(target);
  objects_->response->end();
  throw vbs::EndOfRun{};
}

std::string CustomaryPages::header(std::string_view name) const {
  return objects_ ? std::string(request_->parser.head().header(name)) : std::string();
}

/// Before the page and after it, procedures of global.asa run, which stands in the root.
std::string CustomaryPages::folder() const {
  return run_.depth() > 0 ? run_.folder() : paths::withSeparator(services_.state.ScriptsFolder);
}

std::string_view CustomaryPages::body() const {
  return objects_ ? request_->parser.body() : std::string_view();
}

void CustomaryPages::write(std::string_view bytes) {
  if (objects_) objects_->response->writeBytes(bytes);
}

}  // namespace quorvane::customary
