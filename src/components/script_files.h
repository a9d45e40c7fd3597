#pragma once

#include <string>
#include <string_view>

namespace quorvane {

class Files;
struct Services;
namespace vbs {
class Value;
}

/// The files that a script names, and whether it may use them. Paths come in both styles, with a
/// drive in front or not, relative to the current folder, in any letter case.
class ScriptFiles {
 public:
  /// `services` outlive the object.
  explicit ScriptFiles(const Services& services) : services_(services) {}

  /// The whole path without "." and ".." parts and without a separator at its end, as the file
  /// system spells what is there of it. May lie anywhere.
  std::string fullPath(std::string_view path) const;

  /// The same of a path that the script is about to use. Error 70 where it may not.
  std::string allowedPath(std::string_view path) const;
  std::string allowedPath(const vbs::Value& path) const;

  /// Whether scripts may read and write what a full path names.
  bool allows(std::string_view fullPath) const;

  const Files& files() const;

 private:
  const Services& services_;
};

}  // namespace quorvane
