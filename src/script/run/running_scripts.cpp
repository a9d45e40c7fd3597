#include "script/run/running_scripts.h"

#include "http/clsHTTPParser.h"

namespace quorvane {

RunningScripts::RunningScripts(const Services& services, const Parts& parts, vbs::Limits limits)
    : databases_(services.clock, services.settings),
      services_(services),
      authKeys_(services.clock, services.random),
      sessions_(services.clock, services.random, services.log),
      application_(vbs::make<ApplicationComponent>(services_, parts.aliases)),
      parts_{parts.encoder, authKeys_, *application_},
      vbsParser_(services_, parts_, limits),
      customary_(services_, parts_, application_->shared(), limits) {
  services_.page = &vbsParser_;
  services_.databases = &databases_;
  application_->setLanguage(&parts.texts);
}

ScriptPageResult RunningScripts::run(const ScriptPageRequest& request) {
  if (customary_.takes(request)) return {customary_.outcomeOf(request), 0};
  const std::int32_t asked = request.parser.SessionID();
  const vbs::Ref<aspSessionObj> session = sessions_.getOrCreate(asked);
  const std::int32_t held = session->SessionID();
  ScriptPageResult result{vbsParser_.outcomeOf(request, session), session->SessionID()};
  sessions_.noteRun(held);
  // A page that gives its session another number loses it: the client will ask by the new one,
  // under which nothing is held.
  if (result.sessionNumber != asked) sessions_.remove(asked);
  return result;
}

void RunningScripts::expireSessions() {
  sessions_.expire();
  customary_.site().sweep();
}

}  // namespace quorvane
