#include "script/running_scripts.h"

#include "support/server_state.h"

namespace quorvane {

RunningScripts::RunningScripts(const Parts& parts, vbs::Limits limits)
    : dates_(parts.clock),
      authKeys_(parts.clock, parts.random),
      sessions_(parts.clock, parts.random, parts.log),
      application_(vbs::make<ApplicationComponent>(VersionText(parts.state), parts.aliases,
                                                   parts.clock, parts.random)),
      services_{parts.state, parts.files,   parts.clock, parts.process,
                dates_,      parts.encoder, authKeys_,   *application_},
      vbsParser_(services_, parts.events, limits),
      runner_(vbsParser_, sessions_) {}

}  // namespace quorvane
