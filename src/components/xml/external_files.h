#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {
class ScriptFiles;
}

namespace quorvane::xml {

/// Where the library may look for what a document names: entities, external subsets, parts of
/// style sheets. Without one that lives on this thread, nowhere.
class ExternalFiles {
 public:
  /// Null: nowhere, as without it.
  explicit ExternalFiles(const ScriptFiles* files);
  ~ExternalFiles();
  ExternalFiles(const ExternalFiles&) = delete;
  ExternalFiles& operator=(const ExternalFiles&) = delete;

  /// What stands at `location`, a path or a "file:" address. Nothing for other addresses and for
  /// files that scripts may not read.
  static std::optional<std::string> read(std::string_view location);

  /// Makes this the library's only way to what lies outside of a document.
  static void install();

 private:
  const ScriptFiles* files_;
  ExternalFiles* outer_;
};

/// The path that a text names: itself or what stands behind "file:"; nothing for an address of
/// another kind.
std::optional<std::string> filePath(std::string_view location);

}  // namespace quorvane::xml
