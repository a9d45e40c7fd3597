#include "components/script_files.h"

#include <filesystem>

#include "platform/process.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

namespace {

namespace fs = std::filesystem;

/// Longer paths are nowhere; their parts are not looked at.
constexpr std::size_t kLongestPath = 32'767;

/// Where there are no drives, all of them are the one root.
std::string_view withoutDrive(std::string_view path) {
  const bool hasDrive = path.size() > 1 && path[1] == ':';
  return hasDrive && paths::kSeparator == '/' ? path.substr(2) : path;
}

fs::path withoutLastSeparator(const fs::path& path) {
  return path.has_filename() || path == path.root_path() ? path : path.parent_path();
}

bool isBelow(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return false;
  return path.size() == folder.size() || paths::isSeparator(folder.back()) ||
         paths::isSeparator(path[folder.size()]);
}

std::optional<std::string> findWhole(const Files& files, const fs::path& path) {
  const auto rooted = RootedPath::literal(path.root_path().string(), path.relative_path().string());
  return rooted ? files.find(*rooted) : std::nullopt;
}

}  // namespace

const Files& ScriptFiles::files() const {
  return services_.files;
}

std::string ScriptFiles::fullPath(std::string_view path) const {
  const std::string_view named = withoutDrive(path);
  if (named.size() > kLongestPath || named.find('\0') != named.npos) {
    vbs::throwError(vbs::ErrorCode::BadFileName);
  }
  fs::path whole = paths::native(named);
  if (!whole.is_absolute()) whole = fs::path(services_.process.currentFolder()) / whole;
  whole = withoutLastSeparator(whole.lexically_normal());
  if (auto found = findWhole(files(), whole)) return *found;
  const auto folder = findWhole(files(), whole.parent_path());
  return folder ? paths::join(*folder, whole.filename().string()) : whole.string();
}

bool ScriptFiles::allows(std::string_view fullPath) const {
  const std::string& folders = services_.state.ScriptFolders;
  if (folders == "*") return true;
  if (folders.empty()) {
    return isBelow(fullPath, this->fullPath(services_.state.MainPath)) ||
           isBelow(fullPath,
                   this->fullPath(services_.process.systemFolder(SystemFolder::Temporary)));
  }
  for (const std::string_view folder : split(folders, ';')) {
    if (!folder.empty() && isBelow(fullPath, this->fullPath(folder))) return true;
  }
  return false;
}

std::string ScriptFiles::allowedPath(std::string_view path) const {
  std::string whole = fullPath(path);
  if (!allows(whole)) vbs::throwError(vbs::ErrorCode::PermissionDenied);
  return whole;
}

std::string ScriptFiles::allowedPath(const vbs::Value& path) const {
  return allowedPath(vbs::toString(path).narrow());
}

}  // namespace quorvane
