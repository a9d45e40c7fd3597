#include "script/running_scripts.h"

#include "http/clsHTTPParser.h"
#include "support/server_state.h"

namespace quorvane {

RunningScripts::RunningScripts(const Parts& parts, vbs::Limits limits)
    : heads_(parts.state, parts.clock),
      authKeys_(parts.clock, parts.random),
      sessions_(parts.clock, parts.random, parts.log),
      application_(vbs::make<ApplicationComponent>(VersionText(parts.state), parts.aliases,
                                                   parts.clock, parts.random)),
      services_{parts.state, parts.files,   parts.clock, parts.process,
                heads_,      parts.encoder, authKeys_,   *application_},
      vbsParser_(services_, limits) {
  application_->setLanguage(&parts.texts);
}

ScriptPageResult RunningScripts::run(const ScriptPageRequest& request) {
  const std::int32_t asked = request.parser.SessionID();
  const vbs::Ref<aspSessionObj> session = sessions_.getOrCreate(asked);
  ScriptPageResult result{vbsParser_.outcomeOf(request, session), session->SessionID()};
  // A page that gives its session another number loses it: the client will ask by the new one,
  // under which nothing is held.
  if (result.sessionNumber != asked) sessions_.remove(asked);
  return result;
}

}  // namespace quorvane
