#include "script/run/running_scripts.h"

#include "http/clsHTTPParser.h"

namespace quorvane {

RunningScripts::RunningScripts(const Services& services, const Parts& parts, vbs::Limits limits)
    : databases_(services.clock, services.settings),
      services_(services),
      keeping_(makeKeeping(services)),
      authKeys_(keeping_->authKeys()),
      sessions_(keeping_->sessions()),
      application_(vbs::make<ApplicationComponent>(services_, parts.aliases)),
      parts_{parts.encoder, *authKeys_, *application_},
      vbsParser_(services_, parts_, limits),
      customary_(services_, parts_, application_->shared(), *keeping_, limits) {
  application_->shared()->setBacking(keeping_->application());
  services_.page = &vbsParser_;
  services_.databases = &databases_;
  application_->setLanguage(&parts.texts);
}

ScriptPageResult RunningScripts::run(const ScriptPageRequest& request) {
  ScriptPageResult result = runPage(request);
  application_->shared()->endPage();
  return result;
}

ScriptPageResult RunningScripts::runPage(const ScriptPageRequest& request) {
  if (customary_.takes(request)) return {customary_.outcomeOf(request), 0};
  const std::int32_t asked = request.parser.SessionID();
  const vbs::Ref<aspSessionObj> session = sessions_->getOrCreate(asked);
  const std::int32_t held = session->SessionID();
  ScriptPageResult result{vbsParser_.outcomeOf(request, session), session->SessionID()};
  sessions_->noteRun(held);
  // A page that gives its session another number loses it: the client will ask by the new one,
  // under which nothing is held.
  if (result.sessionNumber != asked) sessions_->remove(asked);
  return result;
}

void RunningScripts::expireSessions() {
  sessions_->expire();
  customary_.site().sweep();
  application_->shared()->endPage();
}

}  // namespace quorvane
