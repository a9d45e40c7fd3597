#pragma once

#include <string>

#include "vbscript/engine.h"

namespace quorvane::qvscript {

struct SourceFile {
  std::string text;
  std::string complaint;  ///< empty: the file was read
};
SourceFile readSource(const std::string& path);

/// The absolute form of a path, or the path itself when there is none.
std::string absolutePath(const std::string& path);

/// "file(line, column) kind: text" and a line end.
std::string describe(const std::string& file, const vbs::ErrorReport& error);

}  // namespace quorvane::qvscript
