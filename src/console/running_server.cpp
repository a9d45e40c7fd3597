#include "console/running_server.h"

#include "support/server_state.h"

namespace quorvane {

RunningServer::RunningServer(const Services& services, const Parts& parts)
    : services_(services),
      parts_(parts),
      modules_(services.files),
      language_(services.files, parts.userDefaultLCID),
      scripts_(services, {encoder_, aliases_, language_}) {}

void RunningServer::renew(std::int32_t language) {
  cookies_.clear();
  modules_.setLanguageID(language);
  modules_.setFollowLinks(services_.state.FollowLinks);
  modules_.setModFolder(services_.state.ScriptsFolder);
  scripts_.authKeys().clear();
  handling_ = std::make_unique<RequestHandling>(
      services_, RequestHandlingParts{parser_, cookies_, modules_, aliases_, scripts_,
                                      parts_.events, parts_.clients, parts_.loop});
}

}  // namespace quorvane
