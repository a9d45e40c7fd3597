#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/files.h"

namespace quorvane {

/// What a request's target stands for on the disk.

/// A local file in two parts, so that a file of the document root is never looked for outside it.
struct LocalTarget {
  enum class Reach {
    Inside,    ///< `path` may not leave `base`
    Anywhere,  ///< below no base
    Nowhere,   ///< never there, whatever its text names
  };

  std::string base;  ///< the document root, or empty
  std::string path;  ///< what follows the base; separators are the system's own
  Reach reach = Reach::Inside;

  std::string text() const { return base + path; }
  bool isInside() const { return reach == Reach::Inside; }

  /// A file below the document root by the path of a URL.
  static LocalTarget inside(const std::string& documentRoot, std::string_view urlPath);

  /// A complete local path. One that lies in the document root is treated as a file of it.
  static LocalTarget anywhere(const std::string& documentRoot, std::string_view localPath);

  /// A complete local path that leads to nothing unless it lies in the document root.
  static LocalTarget onlyInside(const std::string& documentRoot, std::string_view localPath);
};

/// A file that is there.
struct FoundFile {
  std::string path;  ///< as the file system spells it
  FileInfo info;
};

namespace targets {

/// The target's file or folder, letter case aside inside the document root; nothing when it is not
/// there or may not be reached, by symbolic links that leave the document root for one.
std::optional<FoundFile> locate(const Files& files, const LocalTarget& target, bool followLinks);

}  // namespace targets

}  // namespace quorvane
