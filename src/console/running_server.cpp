#include "console/running_server.h"

#include "support/server_state.h"

namespace quorvane {

RunningServer::RunningServer(const Parts& parts)
    : parts_(parts),
      language_(parts.userDefaultLCID),
      scripts_({parts.state, parts.log, parts.clock, parts.files, parts.random, parts.process,
                encoder_, aliases_, language_}) {}

void RunningServer::renew(std::int32_t language) {
  cookies_.clear();
  modules_.setLanguageID(language);
  modules_.setModFolder(parts_.state.ScriptsFolder);
  scripts_.authKeys().clear();
  handling_ = std::make_unique<RequestHandling>(RequestHandlingParts{
      parts_.state, parts_.log, parts_.clock, parts_.files, parts_.random, parser_, cookies_,
      modules_, zip_, aliases_, scripts_, parts_.events, parts_.images});
}

}  // namespace quorvane
