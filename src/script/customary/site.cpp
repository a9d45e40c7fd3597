#include "script/customary/site.h"

#include <utility>

#include "script/customary/code_page.h"
#include "script/customary/server_object.h"
#include "script/run/keeping.h"
#include "support/paths.h"
#include "support/rooted_path.h"
#include "support/server_state.h"
#include "vbscript/values/circles.h"

namespace quorvane::customary {

namespace {

/// What members usable without an object's name are published under: no script can spell it.
constexpr std::string_view kNoName;

constexpr std::string_view kFileName = "global.asa";

/// How often the file is looked at.
constexpr std::chrono::seconds kLookEvery{1};

/// What the ends of sessions may take at a time, as all clients wait meanwhile.
constexpr std::chrono::seconds kEndsTime{1};

Declarations withScope(const Declarations& all, StaticObject::Scope scope) {
  Declarations some;
  for (const StaticObject& one : all) {
    if (one.scope == scope) some.push_back(one);
  }
  return some;
}

}  // namespace

/// What Server and Session see where no page runs: the document root, and nothing to run there.
class Site::EventPage final : public Page {
 public:
  explicit EventPage(const Services& services, vbs::Limits limits)
      : services_(services),
        limit_(std::chrono::duration_cast<std::chrono::seconds>(limits.time)) {}

  std::string folder() const override { return services_.state.ScriptsFolder; }
  std::int32_t codePage() const override { return kUtf8; }
  void setCodePage(std::int32_t) override {}
  bool isConnected() const override { return true; }
  std::string localAddress() const override { return {}; }
  std::chrono::seconds timeLimit() const override { return limit_; }
  void setTimeLimit(std::chrono::seconds) override {}
  void execute(const std::string& target) override { refuse(target); }
  [[noreturn]] void transfer(const std::string& target) override { refuse(target); }
  PageError lastError() const override { return {}; }

 private:
  [[noreturn]] static void refuse(const std::string& target) {
    vbs::throwError(vbs::ErrorCode::CannotPerform, target);
  }

  const Services& services_;
  std::chrono::seconds limit_;
};

Site::Site(const Services& services, vbs::ProgramCache& programs,
           vbs::Ref<SharedValues> application, Keeping& keeping, SiteEvents::Translate translate,
           vbs::Limits limits)
    : services_(services),
      limits_(limits),
      events_(services, programs, std::move(translate), limits),
      keeping_(keeping),
      sessions_(keeping.visitors()),
      application_(vbs::make<ApplicationObject>(std::move(application), applicationObjects())),
      applicationNames_(vbs::make<StaticNames>(application_->objects())),
      sessionObjects_(sets_.keep({})) {}

Site::~Site() {
  sessions_->endAll();
  runEnds();
  if (keeping_.endsWithServer()) runApplication(SiteEvents::Event::ApplicationEnd);
  while (const auto session = sessions_->takeEnded()) session->clear();
  application_->objects()->dropReferences();
  vbs::endCircles(nullptr);
}

bool Site::looksAgain() {
  const TimePoint now = services_.clock.now();
  if (looked_ && now >= *looked_ && now < *looked_ + kLookEvery) return false;
  looked_ = now;
  return true;
}

void Site::open() {
  if (!looksAgain()) return;
  if (file_.empty()) {
    const auto path = RootedPath::literal(services_.state.ScriptsFolder, kFileName);
    file_ = findBelow(services_.files, *path, services_.state.FollowLinks).value_or("");
  }
  const auto now = file_.empty() ? std::nullopt : services_.files.stat(file_);
  if (now == seen_) {
    if (events_.has(SiteEvents::Event::ApplicationStart) && isStarter()) {
      runApplication(SiteEvents::Event::ApplicationStart);
    }
    return;
  }
  seen_ = now;
  std::string text = now ? services_.files.readAll(file_).value_or("") : std::string();
  if (!now) file_.clear();
  takeUp(std::move(text));
}

/// Without an answer the next second asks again.
bool Site::isStarter() {
  try {
    const bool starts = keeping_.startsApplication(text_, isNewText_);
    isNewText_ = false;
    return starts;
  } catch (const vbs::ScriptError&) {
    return false;
  }
}

void Site::takeUp(std::string text) {
  text_ = std::move(text);
  isNewText_ = true;
  const bool starts = isStarter();
  if (starts) runApplication(SiteEvents::Event::ApplicationEnd);
  events_.setText(file_, text_);
  application_->objects()->dropReferences();
  application_->setObjects(applicationObjects());
  applicationNames_ = vbs::make<StaticNames>(application_->objects());
  sessionObjects_ = sets_.keep(withScope(events_.program().objects, StaticObject::Scope::Session));
  if (starts) runApplication(SiteEvents::Event::ApplicationStart);
}

vbs::Ref<StaticObjects> Site::applicationObjects() {
  return vbs::make<StaticObjects>(
      services_,
      sets_.keep(withScope(events_.program().objects, StaticObject::Scope::Application)));
}

/// What every script of the site sees.
std::vector<PublishedObject> Site::shared() const {
  std::vector<PublishedObject> objects{{"Application", application_.get()}};
  if (!application_->objects()->declared()->empty()) {
    objects.push_back({kNoName, applicationNames_.get(), true});
  }
  if (events_.program().namesTypeLibrary) objects.push_back({kNoName, constants_.get(), true});
  return objects;
}

void Site::runApplication(SiteEvents::Event event) {
  EventPage page(services_, limits_);
  const auto server = vbs::make<ServerObject>(services_, page);
  std::vector<PublishedObject> objects = shared();
  objects.push_back({"Server", server.get()});
  events_.run(event, objects);
  server->detach();
}

std::shared_ptr<Session> Site::begin() {
  auto session = sessions_->create();
  session->objects = vbs::make<StaticObjects>(services_, sessionObjects_);
  return session;
}

vbs::Ref<SessionObject> Site::session(Page& page, std::string_view cookie) {
  try {
    auto session = sessions_->find(cookie);
    if (session && !session->objects) {
      session->objects = vbs::make<StaticObjects>(services_, sessionObjects_);
    }
    return vbs::make<SessionObject>(page, std::move(session), [this] { return begin(); });
  } catch (const vbs::ScriptError& error) {
    return vbs::make<SessionObject>(
        page, nullptr, [error]() -> std::shared_ptr<Session> { throw vbs::ScriptError(error); });
  }
}

void Site::startSession(const vbs::Ref<SessionObject>& session,
                        std::span<const PublishedObject> objects) {
  using Event = SiteEvents::Event;
  if (session->session() || !(events_.has(Event::SessionStart) || events_.has(Event::SessionEnd))) {
    return;
  }
  session->begin();
  const auto names = vbs::make<StaticNames>(session->begin().objects);
  std::vector<PublishedObject> all = shared();
  all.insert(all.end(), objects.begin(), objects.end());
  all.push_back({"Session", session.get()});
  all.push_back({kNoName, names.get(), true});
  events_.run(Event::SessionStart, all);
}

void Site::publish(const Add& add, const vbs::Ref<SessionObject>& session) {
  for (const PublishedObject& one : shared()) {
    add(one.name, *one.object, one.globalMembers);
  }
  add("Session", *session, false);
  const auto& kept = session->session();
  const auto& declared = kept ? kept->objects->declared() : sessionObjects_;
  if (declared->empty()) return;
  const auto names = vbs::make<StaticNames>(
      declared, [session]() -> StaticObjects& { return *session->begin().objects; });
  add(kNoName, *names, true);
}

void Site::publish(const Add& add, Declarations ofPage) {
  if (ofPage.empty()) return;
  const auto objects = vbs::make<StaticObjects>(services_, sets_.keep(std::move(ofPage)));
  const auto names = vbs::make<StaticNames>(objects);
  add(kNoName, *names, true);
}

void Site::close(SessionObject& session) {
  session.detach();
  if (session.session()) sessions_->noteRun(*session.session());
  runEnds();
}

void Site::sweep() {
  sessions_->expire();
  runEnds();
}

/// At least one, so that they do not pile up.
void Site::runEnds() {
  const auto until = services_.clock.steadyNow() + kEndsTime;
  bool mayHaveCircles = false;
  while (const auto session = sessions_->takeEnded()) {
    if (!session->objects) {
      session->objects = vbs::make<StaticObjects>(services_, sessionObjects_);
    }
    end(session);
    mayHaveCircles |= session->holdsObjects();
    session->clear();
    if (services_.clock.steadyNow() > until) break;
  }
  if (mayHaveCircles) vbs::endCircles(nullptr);
}

void Site::end(const std::shared_ptr<Session>& session) {
  if (!events_.has(SiteEvents::Event::SessionEnd)) return;
  EventPage page(services_, limits_);
  const auto server = vbs::make<ServerObject>(services_, page);
  const auto object = vbs::make<SessionObject>(page, session, [&] { return session; });
  const auto names = vbs::make<StaticNames>(session->objects);
  std::vector<PublishedObject> objects = shared();
  objects.insert(
      objects.end(),
      {{"Session", object.get()}, {"Server", server.get()}, {kNoName, names.get(), true}});
  events_.run(SiteEvents::Event::SessionEnd, objects);
  object->detach();
  server->detach();
}

}  // namespace quorvane::customary
