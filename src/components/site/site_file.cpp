#include "components/site/site_file.h"

#include "components/page_context.h"
#include "components/script_files.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/rooted_path.h"
#include "support/server_state.h"
#include "vbscript/values/convert.h"

namespace quorvane {

std::string sitePath(const Services& services, std::string_view path) {
  const std::string& root = services.state.ScriptsFolder;
  const std::string page = services.page ? services.page->folder() : std::string();
  const auto rooted = RootedPath::ofPage(root, page.empty() ? root : page, path);
  if (!rooted) vbs::throwError(vbs::ErrorCode::PermissionDenied);
  return ScriptFiles(services).allowedPath(rooted->text());
}

std::string readSiteFile(const Services& services, const vbs::Value& path) {
  auto text = services.files.readAll(sitePath(services, vbs::toString(path).narrow()));
  if (!text) vbs::throwError(vbs::ErrorCode::FileNotFound);
  vbs::countWork(text->size());
  return std::move(*text);
}

}  // namespace quorvane
