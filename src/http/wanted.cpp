#include "http/wanted.h"

#include "http/clsHTTPParser.h"
#include "http/script_pages.h"
#include "platform/clock.h"
#include "support/file_aliases.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kAliasPrefix = "filebin$";
constexpr std::string_view kPlayerPage = "playmedia.qvs";

}  // namespace

Wanted Wanted::by(const clsHTTPParser& request, const ServerState& state,
                  const FileAliases& aliases, const Clock& clock) {
  Wanted wanted;
  wanted.path = request.DocumentPath();
  wanted.title = request.DocumentTitle();
  wanted.session = request.SessionID();
  wanted.isAlias = startsWithNoCase(wanted.title, kAliasPrefix);
  if (wanted.isAlias) {
    const auto path = aliases.pathOf(wanted.title.substr(kAliasPrefix.size()), clock.now());
    wanted.file = LocalTarget::anywhere(state.ScriptsFolder, path.value_or(""));
  } else {
    wanted.file = LocalTarget::inside(state.ScriptsFolder, wanted.document());
  }
  return wanted;
}

void Wanted::tell(clsHTTPParser& request) const {
  request.setDocumentTitle(title);
  request.setDocumentPath(path);
  request.setPathInfo(info);
}

Wanted Wanted::player() const {
  Wanted wanted = *this;
  wanted.title = kPlayerPage;
  wanted.file.path = std::string(paths::folderOf(file.path)).append(kPlayerPage);
  return wanted;
}

Wanted Wanted::redirected(const RedirectedPage& page, const std::string& documentRoot) const {
  const bool isLocal = page.kind == RedirectedPage::Kind::LocalFile;
  const std::size_t question = isLocal ? std::string::npos : page.target.find('?');
  std::string goal = replaceAll(page.target.substr(0, question), "\\", "/");
  if (!isLocal && !goal.starts_with('/')) goal.insert(goal.begin(), '/');

  Wanted wanted = *this;
  wanted.query.reset();
  wanted.info.clear();
  if (question != std::string::npos) wanted.query = page.target.substr(question + 1);
  wanted.title = paths::fileNameOf(goal);
  wanted.path = paths::folderOf(goal);
  if (!isLocal) {
    wanted.file = LocalTarget::inside(documentRoot, goal);
  } else if (page.mayLeaveRoot) {
    wanted.file = LocalTarget::anywhere(documentRoot, goal);
  } else {
    wanted.file = LocalTarget::onlyInside(documentRoot, goal);
  }
  return wanted;
}

}  // namespace quorvane
