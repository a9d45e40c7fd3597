#include "components/file_system/file_moves.h"

#include <algorithm>
#include <vector>

#include "components/file_system/path_text.h"
#include "support/files.h"
#include "support/paths.h"
#include "vbscript/values/error.h"
#include "vbscript/values/time_check.h"

namespace quorvane::file_moves {

using vbs::ErrorCode;
using vbs::throwError;

namespace {

enum class Kind { File, Folder };

ErrorCode missing(Kind kind) {
  return kind == Kind::File ? ErrorCode::FileNotFound : ErrorCode::PathNotFound;
}

bool isFolder(const Files& files, const std::string& path) {
  const auto info = files.stat(path);
  return info && info->isFolder;
}

bool isOfKind(const Files& files, const std::string& path, Kind kind) {
  const auto info = files.stat(path);
  return info && info->isFolder == (kind == Kind::Folder);
}

void requireFolder(const Files& files, const std::string& path) {
  if (!isFolder(files, path)) throwError(ErrorCode::PathNotFound);
}

std::vector<std::string> matching(const ScriptFiles& scripts, std::string_view spec, Kind kind) {
  const Files& files = scripts.files();
  const std::string_view pattern = paths::fileNameOf(spec);
  if (!path_text::hasWildcards(pattern)) {
    const std::string path = scripts.allowedPath(spec);
    if (!isOfKind(files, path, kind)) throwError(missing(kind));
    return {path};
  }
  const std::string folder = scripts.allowedPath(paths::folderOf(spec));
  requireFolder(files, folder);
  std::vector<std::string> found;
  for (const std::string& name : files.list(folder)) {
    vbs::checkTime();
    const std::string path = paths::join(folder, name);
    if (path_text::matches(name, pattern) && isOfKind(files, path, kind)) found.push_back(path);
  }
  if (found.empty()) throwError(missing(kind));
  std::sort(found.begin(), found.end());
  return found;
}

/// Where things go: into a folder, or to a place of that very name.
class Target {
 public:
  Target(const ScriptFiles& scripts, std::string_view from, std::string_view to)
      : path_(scripts.allowedPath(to)),
        isFolder_((!to.empty() && paths::isSeparator(to.back())) ||
                  path_text::hasWildcards(paths::fileNameOf(from))) {
    if (isFolder_) requireFolder(scripts.files(), path_);
  }

  std::string placeOf(const std::string& source) const {
    return isFolder_ ? paths::join(path_, paths::fileNameOf(source)) : path_;
  }

 private:
  std::string path_;
  bool isFolder_;
};

void requirePlace(const Files& files, const std::string& path) {
  requireFolder(files, std::string(path_text::parentOf(path)));
}

/// Why a file could not be written.
[[noreturn]] void throwWriteError(const Files& files, const std::string& path) {
  const auto room = files.room(std::string(path_text::parentOf(path)));
  throwError(room && room->available == 0 ? ErrorCode::DiskFull : ErrorCode::PermissionDenied);
}

void copyContent(const Files& files, const std::string& from, const std::string& to) {
  constexpr std::size_t kBlock = std::size_t{1} << 20;
  const auto source = files.open(from);
  if (!source) throwError(ErrorCode::PermissionDenied);
  if (!files.writeAll(to, {})) throwWriteError(files, to);
  std::string block(kBlock, '\0');
  for (std::uint64_t at = 0;;) {
    vbs::countWork(kBlock);
    const std::size_t count = source->read(at, block.data(), block.size());
    if (count == 0) return;
    if (!files.append(to, std::string_view(block).substr(0, count))) throwWriteError(files, to);
    at += count;
  }
}

void copyFile(const Files& files, const std::string& from, const std::string& to, bool replace) {
  vbs::checkTime();
  requirePlace(files, to);
  if (const auto there = files.stat(to)) {
    if (there->isFolder || from == to) throwError(ErrorCode::PermissionDenied);
    if (!replace) throwError(ErrorCode::FileExists);
    const auto marks = files.marks(to);
    if (marks && marks->readOnly) throwError(ErrorCode::PermissionDenied);
  }
  copyContent(files, from, to);
}

void deleteFile(const Files& files, const std::string& path, bool force) {
  vbs::checkTime();
  const auto marks = files.marks(path);
  if (marks && marks->readOnly && !force) throwError(ErrorCode::PermissionDenied);
  if (!files.remove(path)) throwError(ErrorCode::PermissionDenied);
}

void copyFolder(const Files& files, const std::string& from, const std::string& to, bool replace) {
  requirePlace(files, to);
  const std::vector<std::string> names = files.list(from);
  if (!isFolder(files, to) && !files.makeFolder(to)) throwWriteError(files, to);
  for (const std::string& name : names) {
    const std::string source = paths::join(from, name);
    const std::string target = paths::join(to, name);
    isFolder(files, source) ? copyFolder(files, source, target, replace)
                            : copyFile(files, source, target, replace);
  }
}

/// A link to a folder is removed as what it is; what it leads to stays.
void deleteFolder(const Files& files, const std::string& path, bool force) {
  if (files.remove(path)) return;
  for (const std::string& name : files.list(path)) {
    const std::string inner = paths::join(path, name);
    isFolder(files, inner) ? deleteFolder(files, inner, force) : deleteFile(files, inner, force);
  }
  if (!files.removeFolder(path)) throwError(ErrorCode::PermissionDenied);
}

void forbidInnerTarget(const std::string& from, const std::string& to) {
  const bool inside =
      to.starts_with(from) && (to.size() == from.size() || to[from.size()] == paths::kSeparator);
  if (inside) throwError(ErrorCode::PermissionDenied);
}

/// Another volume can't be renamed to.
void move(const Files& files, const std::string& from, const std::string& to, Kind kind) {
  requirePlace(files, to);
  if (files.stat(to)) throwError(ErrorCode::FileExists);
  if (files.rename(from, to)) return;
  if (kind == Kind::File) {
    copyFile(files, from, to, false);
    deleteFile(files, from, true);
  } else {
    copyFolder(files, from, to, false);
    deleteFolder(files, from, true);
  }
}

}  // namespace

void copyFiles(const ScriptFiles& scripts, std::string_view from, std::string_view to,
               bool replace) {
  const std::vector<std::string> sources = matching(scripts, from, Kind::File);
  const Target target(scripts, from, to);
  for (const std::string& source : sources) {
    copyFile(scripts.files(), source, target.placeOf(source), replace);
  }
}

void moveFiles(const ScriptFiles& scripts, std::string_view from, std::string_view to) {
  const std::vector<std::string> sources = matching(scripts, from, Kind::File);
  const Target target(scripts, from, to);
  for (const std::string& source : sources) {
    move(scripts.files(), source, target.placeOf(source), Kind::File);
  }
}

void deleteFiles(const ScriptFiles& scripts, std::string_view from, bool force) {
  for (const std::string& path : matching(scripts, from, Kind::File)) {
    deleteFile(scripts.files(), path, force);
  }
}

void copyFolders(const ScriptFiles& scripts, std::string_view from, std::string_view to,
                 bool replace) {
  const std::vector<std::string> sources = matching(scripts, from, Kind::Folder);
  const Target target(scripts, from, to);
  for (const std::string& source : sources) {
    const std::string place = target.placeOf(source);
    forbidInnerTarget(source, place);
    copyFolder(scripts.files(), source, place, replace);
  }
}

void moveFolders(const ScriptFiles& scripts, std::string_view from, std::string_view to) {
  const std::vector<std::string> sources = matching(scripts, from, Kind::Folder);
  const Target target(scripts, from, to);
  for (const std::string& source : sources) {
    const std::string place = target.placeOf(source);
    forbidInnerTarget(source, place);
    move(scripts.files(), source, place, Kind::Folder);
  }
}

void deleteFolders(const ScriptFiles& scripts, std::string_view from, bool force) {
  for (const std::string& path : matching(scripts, from, Kind::Folder)) {
    deleteFolder(scripts.files(), path, force);
  }
}

}  // namespace quorvane::file_moves
