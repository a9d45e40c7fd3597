#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "components/shared_values.h"
#include "platform/services.h"
#include "script/customary/application_object.h"
#include "script/customary/page.h"
#include "script/customary/session_object.h"
#include "script/customary/session_table.h"
#include "script/customary/site_events.h"
#include "script/customary/static_objects.h"
#include "script/customary/type_library_names.h"
#include "support/files.h"
#include "vbscript/engine.h"

namespace quorvane {
class Keeping;
}

namespace quorvane::customary {

/// What a site keeps as long as the server runs: its sessions, what all pages share, and the events
/// of its global.asa. For each page, in this order:
///
///     site.open();
///     auto session = site.session(page, cookieValue);  // the cookie's name is kSessionCookie
///     site.startSession(*session, objects);            // unless the page declares to have none
///     site.publish(add, session);                      // Application, Session, static objects
///     ... run the page; Set-Cookie goes out when session->isNew() ...
///     site.close(*session);
///
/// A session begins when a page uses Session for the first time; where global.asa has a
/// procedure for the start or the end of one, with the visitor's first page. sweep() is for a
/// timer.
///
/// A global.asa that has changed is taken up by the next page: Application_OnEnd of the old text
/// runs, then Application_OnStart of the new one, whose static objects are new. The values of the
/// application and the sessions that are there stay; what runs from then on is the new text's.
class Site {
 public:
  static constexpr std::string_view kSessionCookie = "QVSITEID";

  /// The services, the cache and `keeping` outlive the site; `application` is what all pages share,
  /// with those of the default dialect.
  Site(const Services& services, vbs::ProgramCache& programs, vbs::Ref<SharedValues> application,
       Keeping& keeping, SiteEvents::Translate translate, vbs::Limits limits = {});
  Site(const Site&) = delete;
  Site& operator=(const Site&) = delete;
  ~Site();  ///< runs Session_OnEnd and Application_OnEnd

  void open();

  /// For one run. `cookie` is what the browser sent, or empty.
  vbs::Ref<SessionObject> session(Page& page, std::string_view cookie);

  /// Begins a session where one must be there before the page runs, and runs Session_OnStart for a
  /// new one, which sees `objects` (all but those that publish() brings). The caller looks at its
  /// Response whether that has ended the page already.
  void startSession(const vbs::Ref<SessionObject>& session,
                    std::span<const PublishedObject> objects);

  /// As vbs::Engine::addObject().
  using Add = std::function<void(std::string_view name, vbs::Object& object, bool globalMembers)>;

  void publish(const Add& add, const vbs::Ref<SessionObject>& session);
  /// The same for what a page's own text declares. Made for one run.
  void publish(const Add& add, Declarations ofPage);

  /// The page has run. Session_OnEnd runs for sessions that have ended by it. Throws
  /// vbs::ScriptError when what it has left in its session can't be kept.
  void close(SessionObject& session);

  void sweep();  ///< sessions that are out of date end

  std::size_t sessionCount() const { return sessions_->size(); }

 private:
  class EventPage;

  std::optional<std::string> findText();
  void takeUp(std::string text);
  bool isStarter();
  std::shared_ptr<Session> begin();
  std::vector<PublishedObject> shared() const;
  vbs::Ref<StaticObjects> applicationObjects();
  void runEnds();
  void end(const std::shared_ptr<Session>& session);
  void runApplication(SiteEvents::Event event);
  bool looksAgain();

  const Services& services_;
  vbs::Limits limits_;
  SiteEvents events_;
  DeclarationSets sets_;
  Keeping& keeping_;
  std::unique_ptr<SessionTable> sessions_;
  vbs::Ref<ApplicationObject> application_;
  vbs::Ref<StaticNames> applicationNames_;
  vbs::Ref<TypeLibraryNames> constants_ = vbs::make<TypeLibraryNames>();
  std::shared_ptr<const Declarations> sessionObjects_;
  std::string file_;              ///< global.asa, as the file system spells it; empty: not there
  std::string text_;              ///< of it
  bool isNewText_ = false;        ///< nobody has been asked yet who starts the application with it
  std::optional<FileInfo> seen_;  ///< when its text was taken
  std::optional<TimePoint> looked_;
};

}  // namespace quorvane::customary
