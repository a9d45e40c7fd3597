#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.h"
#include "tools/qvmpack_module.h"

namespace quorvane {

/// Modules and folders: what goes into a module, what the server finds in it, what comes out.

struct FolderContents {
  std::vector<ModuleFile> files;      ///< in the order in which the server finds them all
  std::vector<std::string> warnings;  ///< files left out and why, a sentence each
  bool readable = true;
};

/// Everything below `folder` except the file `leftOut`. Language variants come last, shorter paths
/// before longer ones: the server takes a file whose key occurs in the keys before it for one it
/// has already.
FolderContents readFolder(const std::string& folder, const std::string& leftOut,
                          const Files& files);

/// How a client asks for a module's file.
struct ServedPath {
  std::string path;       ///< begins with a separator
  std::int32_t language;  ///< of the server that prefers the file; negative: whichever
};

/// Nothing when no request leads to the file.
std::optional<ServedPath> servedAs(const ModuleFile& file);

/// What of a module's files the server would not serve as they are, a sentence each. `bytes` are
/// the whole module and `contents` what was read from it.
std::vector<std::string> unservedFiles(std::string_view bytes, const ModuleContents& contents,
                                       const Files& files);

/// Where below `folder` a module's file is unpacked; nothing when its names would lead outside or
/// can't be file names.
std::optional<RootedPath> unpackedPath(const ModuleFile& file, const std::string& folder);

/// Writes a module's file below `folder`, which exists, making folders as needed. Never through a
/// symbolic link. A sentence when it could not be done, else empty.
std::string unpackFile(const ModuleFile& file, const std::string& folder, const Files& files);

}  // namespace quorvane
