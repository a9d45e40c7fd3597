#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/calendar_time.h"
#include "support/rooted_path.h"

namespace quorvane {

struct FileInfo {
  std::uint64_t size = 0;      ///< bytes
  TimePoint modified;          ///< last change of the content
  std::uint64_t identity = 0;  ///< differs when a name comes to stand for another file
  bool isFolder = false;

  friend bool operator==(const FileInfo&, const FileInfo&) = default;
};

/// What a file or folder has besides its content.
struct FileMarks {
  TimePoint created;   ///< of a file system that does not know it: the last change of its marks
  TimePoint accessed;  ///< last reading, as far as the system keeps it
  bool readOnly = false;
  bool hidden = false;
};

/// The place that files have, in bytes.
struct VolumeRoom {
  std::uint64_t size = 0;
  std::uint64_t free = 0;
  std::uint64_t available = 0;  ///< what of it this process may use
};

/// A file open for reading. Closes with its last owner; the content may change while it is open.
class OpenFile {
 public:
  virtual ~OpenFile() = default;

  virtual const FileInfo& info() const = 0;  ///< as it was when the file was opened

  /// Reads up to `length` bytes from `offset` into `out`; fewer at the end of the file or after
  /// an error.
  virtual std::size_t read(std::uint64_t offset, char* out, std::size_t length) const = 0;
};

/// The file system. Failures are empty results; nothing here throws.
/// Paths are bytes in the system's own form.
class Files {
 public:
  virtual ~Files() = default;

  virtual std::optional<FileInfo> stat(const std::string& path) const = 0;

  /// Finds `path` as it stands, else without regard to letter case in every part below its root
  /// (which is taken as it is). Returns the path as the file system spells it. A path longer than
  /// the system allows is not there.
  virtual std::optional<std::string> find(const RootedPath& path) const = 0;

  /// Whether what `path` leads to lies below what `root` leads to, or is it: both with all symbolic
  /// links followed. False when one of them is not there.
  virtual bool leadsBelow(const std::string& path, const std::string& root) const = 0;

  virtual std::shared_ptr<const OpenFile> open(const std::string& path) const = 0;

  /// The whole file, or nothing when it is missing or unreadable.
  virtual std::optional<std::string> readAll(const std::string& path) const = 0;

  /// Writes a file under another name and puts it in place in one step: a reader sees the old
  /// content or the new one. False leaves no partial file behind.
  virtual bool writeAll(const std::string& path, std::string_view bytes) const = 0;

  /// Adds to the end of a file, making it when it is missing.
  virtual bool append(const std::string& path, std::string_view bytes) const = 0;

  virtual bool remove(const std::string& path) const = 0;

  /// Removes a folder that is empty.
  virtual bool removeFolder(const std::string& path) const = 0;

  /// Gives a file or folder another name or place on the same volume. Replaces nothing.
  virtual bool rename(const std::string& from, const std::string& to) const = 0;

  virtual std::optional<FileMarks> marks(const std::string& path) const = 0;
  virtual bool setReadOnly(const std::string& path, bool readOnly) const = 0;

  /// Of the volume that a file or folder stands on.
  virtual std::optional<VolumeRoom> room(const std::string& path) const = 0;

  /// Makes one folder, not its parents.
  virtual bool makeFolder(const std::string& path) const = 0;

  /// The names in a folder without "." and "..", in the order the file system gives them.
  virtual std::vector<std::string> list(const std::string& folder) const = 0;
};

/// Files::find where links that leave the root may have to be passed over.
inline std::optional<std::string> findBelow(const Files& files, const RootedPath& path,
                                            bool followLinks) {
  auto found = files.find(path);
  if (found && !followLinks && !files.leadsBelow(*found, std::string(path.root()))) found.reset();
  return found;
}

}  // namespace quorvane
