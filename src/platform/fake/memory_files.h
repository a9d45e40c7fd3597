#pragma once

#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/fold_case.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

/// A file system in memory, for tests. Paths use "/" or the system's separator and start at a root
/// that is there from the beginning. A change of content changes identity and time of change.
class MemoryFiles final : public Files {
 public:
  TimePoint stamp{};                         ///< given to what is written from now on
  std::map<std::string, std::string> links;  ///< what leads elsewhere: plain paths on both sides
  std::set<std::string> inUse;  ///< can't be removed, as open files can't on some systems

  /// Writes a file wherever it stands, with the folders above it.
  void put(const std::string& path, std::string bytes) {
    const std::string name = plain(path);
    addFolder(folderOf(name));
    store(name, std::move(bytes));
  }

  /// Makes a folder wherever it stands, with those above it.
  void addFolder(const std::string& path) {
    for (std::string folder = plain(path); !isFolder(folder); folder = folderOf(folder)) {
      folders_[folder] = {0, stamp, ++lastIdentity_, true};
    }
  }

  std::optional<FileInfo> stat(const std::string& path) const override {
    const std::string name = followed(path);
    if (name.empty()) return FileInfo{0, {}, 0, true};
    if (const auto it = folders_.find(name); it != folders_.end()) return it->second;
    const auto it = files_.find(name);
    if (it == files_.end() || isSeparator(path.back())) return std::nullopt;
    return it->second.info;
  }

  std::optional<std::string> find(const RootedPath& wanted) const override {
    if (stat(wanted.text())) return wanted.text();
    std::string path(wanted.root());
    const std::string below = plain(std::string(wanted.relative()));
    for (const std::string_view part : split(below, '/')) {
      if (part.empty()) continue;
      if (!isSeparator(path.back())) path += paths::kSeparator;
      const auto name = nameIn(path, part);
      if (!name) return std::nullopt;
      path += *name;
    }
    return stat(path) ? std::optional(path) : std::nullopt;
  }

  bool leadsBelow(const std::string& path, const std::string& root) const override {
    return stat(path) && stat(root) && (followed(path) + '/').starts_with(followed(root) + '/');
  }

  std::shared_ptr<const OpenFile> open(const std::string& path) const override {
    const auto it = files_.find(followed(path));
    return it == files_.end() ? nullptr : std::make_shared<Opened>(it->second);
  }

  std::optional<std::string> readAll(const std::string& path) const override {
    const auto it = files_.find(followed(path));
    if (it == files_.end()) return std::nullopt;
    return *it->second.bytes;
  }

  bool writeAll(const std::string& path, std::string_view bytes) const override {
    const std::string name = plain(path);
    if (isFolder(name) || !isFolder(folderOf(name))) return false;
    store(name, std::string(bytes));
    return true;
  }

  bool append(const std::string& path, std::string_view bytes) const override {
    return writeAll(path, readAll(path).value_or("") + std::string(bytes));
  }

  bool remove(const std::string& path) const override {
    return !inUse.contains(path) && files_.erase(plain(path)) > 0;
  }

  bool removeFolder(const std::string& path) const override {
    const std::string name = plain(path);
    return list(name).empty() && folders_.erase(name) > 0;
  }

  bool rename(const std::string& from, const std::string& to) const override {
    const std::string source = plain(from);
    const std::string target = plain(to);
    if (stat(to) || !stat(from) || !isFolder(folderOf(target))) return false;
    renameBelow(files_, source, target);
    renameBelow(folders_, source, target);
    return true;
  }

  std::optional<FileMarks> marks(const std::string& path) const override {
    const auto info = stat(path);
    if (!info) return std::nullopt;
    const std::string name = plain(path);
    return FileMarks{info->modified, info->modified, readOnly_.contains(name),
                     name.substr(folderOf(name).size()).starts_with("/.")};
  }

  bool setReadOnly(const std::string& path, bool readOnly) const override {
    if (!stat(path)) return false;
    readOnly ? (void)readOnly_.insert(plain(path)) : (void)readOnly_.erase(plain(path));
    return true;
  }

  std::optional<VolumeRoom> room(const std::string& path) const override {
    if (!stat(path)) return std::nullopt;
    return VolumeRoom{1 << 30, 1 << 29, 1 << 28};
  }

  bool makeFolder(const std::string& path) const override {
    const std::string name = plain(path);
    if (isFolder(name) || files_.contains(name) || !isFolder(folderOf(name))) return false;
    folders_[name] = {0, stamp, ++lastIdentity_, true};
    return true;
  }

  std::vector<std::string> list(const std::string& folder) const override {
    std::vector<std::string> names;
    const std::string parent = plain(folder);
    const auto add = [&](const std::string& path) {
      if (!path.empty() && folderOf(path) == parent)
        names.push_back(path.substr(parent.size() + 1));
    };
    for (const auto& [path, file] : files_) add(path);
    for (const auto& [path, info] : folders_) add(path);
    return names;
  }

 private:
  struct File {
    std::shared_ptr<const std::string> bytes;
    FileInfo info;
  };

  class Opened final : public OpenFile {
   public:
    explicit Opened(File file) : file_(std::move(file)) {}
    const FileInfo& info() const override { return file_.info; }
    std::size_t read(std::uint64_t offset, char* out, std::size_t length) const override {
      if (offset >= file_.bytes->size()) return 0;
      const std::size_t count = std::min<std::size_t>(length, file_.bytes->size() - offset);
      std::memcpy(out, file_.bytes->data() + offset, count);
      return count;
    }

   private:
    File file_;
  };

  static bool isSeparator(char c) { return c == '/' || c == paths::kSeparator; }

  /// One "/" before each part and none at the end; the root is the empty text.
  static std::string plain(const std::string& path) {
    std::string result;
    for (std::size_t i = 0; i < path.size(); ++i) {
      if (isSeparator(path[i])) continue;
      if (i == 0 || isSeparator(path[i - 1])) result += '/';
      result += path[i];
    }
    return result;
  }
  /// The plain path with its links followed, whatever stands in front of what.
  std::string followed(const std::string& path) const {
    std::string name = plain(path);
    for (bool again = true; again;) {
      again = false;
      for (const auto& [link, target] : links) {
        if (!(name + '/').starts_with(link + '/')) continue;
        name.replace(0, link.size(), target);
        again = true;
      }
    }
    return name;
  }
  static std::string folderOf(const std::string& plain) {
    return plain.substr(0, std::min(plain.rfind('/'), plain.size()));
  }
  bool isFolder(const std::string& plain) const {
    return plain.empty() || folders_.contains(plain);
  }

  template <class Entries>
  static void renameBelow(Entries& entries, const std::string& source, const std::string& target) {
    Entries kept;
    for (auto& [path, entry] : entries) {
      const bool moves = path == source || path.starts_with(source + '/');
      kept[moves ? target + path.substr(source.size()) : path] = std::move(entry);
    }
    entries.swap(kept);
  }

  void store(const std::string& plain, std::string bytes) const {
    const FileInfo info{bytes.size(), stamp, ++lastIdentity_, false};
    files_[plain] = {std::make_shared<const std::string>(std::move(bytes)), info};
  }

  /// The name itself, else the first by order that differs in letter case only.
  std::optional<std::string> nameIn(const std::string& folder, std::string_view wanted) const {
    std::optional<std::string> first;
    for (std::string& name : list(folder)) {
      if (name == wanted) return name;
      if (foldCase(name) == foldCase(wanted) && (!first || name < *first)) first = std::move(name);
    }
    return first;
  }

  mutable std::map<std::string, File> files_;
  mutable std::map<std::string, FileInfo> folders_;
  mutable std::set<std::string> readOnly_;
  mutable std::uint64_t lastIdentity_ = 0;
};

}  // namespace quorvane
