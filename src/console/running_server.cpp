#include "console/running_server.h"

#include "support/server_state.h"

namespace quorvane {

RunningServer::RunningServer(const Parts& parts)
    : parts_(parts),
      language_(parts.userDefaultLCID),
      scripts_(parts.makeScripts({parts.state, parts.log, parts.clock, parts.files, parts.random,
                                  encoder_, aliases_, language_, parts.events})) {}

void RunningServer::renew(std::int32_t language) {
  cookies_.clear();
  modules_.setLanguageID(language);
  modules_.setModFolder(parts_.state.ScriptsFolder);
  scripts_->forgetKeys();
  handling_ = std::make_unique<RequestHandling>(RequestHandlingParts{
      parts_.state, parts_.log, parts_.clock, parts_.files, parts_.random, parser_, cookies_,
      modules_, zip_, aliases_, scripts_->pages(), parts_.images});
}

}  // namespace quorvane
