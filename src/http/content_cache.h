#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/clock.h"
#include "platform/outgoing.h"
#include "support/files.h"

namespace quorvane {

/// Bodies made of whole files. Small files are kept in memory and shared between responses, each
/// use checked against the file's present state; large ones are sent from the file itself.
class ContentCache {
 public:
  static constexpr std::uint64_t kMostFileBytes = 64 * 1024;        ///< larger files aren't kept
  static constexpr std::size_t kMostBytes = std::size_t{16} << 20;  ///< kept altogether

  ContentCache(const Files& files, const Clock& clock) : files_(files), clock_(clock) {}

  /// A file's content and what the file was when it was opened for it.
  struct Content {
    Body body;
    FileInfo info;
  };

  /// `present` is what the file system says of `path` now. Nothing for a folder or a file that
  /// can't be read.
  std::optional<Content> contentOf(const std::string& path, const FileInfo& present);

  /// The same where such files give an empty body.
  Body bodyOf(const std::string& path, const FileInfo& present);

  std::size_t keptBytes() const { return keptBytes_; }

 private:
  struct Entry {
    std::string path;
    FileInfo info;
    std::shared_ptr<const std::string> content;
  };
  using Entries = std::list<Entry>;

  std::optional<Content> loaded(const std::string& path);
  bool isSettled(const FileInfo& info) const;
  void keep(Entry entry);
  void drop(Entries::iterator entry);

  const Files& files_;
  const Clock& clock_;
  Entries entries_;  ///< last used first
  std::unordered_map<std::string, Entries::iterator> byPath_;
  std::size_t keptBytes_ = 0;
};

}  // namespace quorvane
