#pragma once

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "support/files.h"

namespace quorvane {

/// A file system in memory, for tests. Paths use "/". Folders come to be with the first file in
/// them or by makeFolder. A change of content changes identity and time of change.
class MemoryFiles final : public Files {
 public:
  TimePoint stamp{};            ///< given to what is written from now on
  std::set<std::string> inUse;  ///< can't be removed, as open files can't on some systems

  void put(const std::string& path, std::string bytes) {
    entries_[path] = {std::make_shared<const std::string>(std::move(bytes)), stamp,
                      ++lastIdentity_};
  }

  std::optional<FileInfo> stat(const std::string& path) const override {
    if (const auto it = entries_.find(path); it != entries_.end()) return infoOf(it->second);
    if (isFolder(path)) return FileInfo{0, stamp, 0, true};
    return std::nullopt;
  }

  std::optional<std::string> find(const RootedPath& rooted) const override {
    const std::string& wanted = rooted.text();
    if (stat(wanted)) return wanted;
    for (const auto& [path, entry] : entries_) {
      if (!path.starts_with(rooted.root()) || path.size() < wanted.size()) continue;
      const std::string head = path.substr(0, wanted.size());
      const bool whole = path.size() == wanted.size() || path[wanted.size()] == '/';
      if (whole && sameLetters(head, wanted)) return head;
    }
    return std::nullopt;
  }

  std::shared_ptr<const OpenFile> open(const std::string& path) const override {
    const auto it = entries_.find(path);
    if (it == entries_.end()) return nullptr;
    return std::make_shared<Opened>(it->second.bytes, infoOf(it->second));
  }

  std::optional<std::string> readAll(const std::string& path) const override {
    const auto it = entries_.find(path);
    if (it == entries_.end()) return std::nullopt;
    return *it->second.bytes;
  }

  bool writeAll(const std::string& path, std::string_view bytes) const override {
    if (!isFolder(folderOf(path))) return false;
    entries_[path] = {std::make_shared<const std::string>(bytes), stamp, ++lastIdentity_};
    return true;
  }

  bool append(const std::string& path, std::string_view bytes) const override {
    return writeAll(path, readAll(path).value_or("") + std::string(bytes));
  }

  bool remove(const std::string& path) const override {
    return !inUse.contains(path) && entries_.erase(path) > 0;
  }

  bool makeFolder(const std::string& path) const override {
    if (isFolder(path) || !isFolder(folderOf(path))) return false;
    folders_.push_back(path);
    return true;
  }

  /// Makes a folder wherever it stands.
  void addFolder(const std::string& path) { folders_.push_back(path); }

  std::vector<std::string> list(const std::string& folder) const override {
    std::vector<std::string> names;
    const std::string prefix = joined(folder, "");
    const auto add = [&](const std::string& path) {
      if (path.size() <= prefix.size() || !path.starts_with(prefix)) return;
      const std::string name =
          path.substr(prefix.size(), path.find('/', prefix.size()) - prefix.size());
      if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    for (const auto& [path, entry] : entries_) add(path);
    for (const auto& path : folders_) add(path);
    return names;
  }

 private:
  struct Entry {
    std::shared_ptr<const std::string> bytes;
    TimePoint modified;
    std::uint64_t identity = 0;
  };

  class Opened final : public OpenFile {
   public:
    Opened(std::shared_ptr<const std::string> bytes, FileInfo info)
        : bytes_(std::move(bytes)), info_(info) {}
    const FileInfo& info() const override { return info_; }
    std::size_t read(std::uint64_t offset, char* out, std::size_t length) const override {
      if (offset >= bytes_->size()) return 0;
      const std::size_t count = std::min<std::size_t>(length, bytes_->size() - offset);
      std::memcpy(out, bytes_->data() + offset, count);
      return count;
    }

   private:
    std::shared_ptr<const std::string> bytes_;
    FileInfo info_;
  };

  static FileInfo infoOf(const Entry& entry) {
    return {entry.bytes->size(), entry.modified, entry.identity, false};
  }
  static std::string joined(const std::string& base, std::string_view relative) {
    std::string path = base;
    if (!path.empty() && path.back() != '/') path += '/';
    while (relative.starts_with('/')) relative.remove_prefix(1);
    return path.append(relative);
  }
  static std::string folderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
  }
  static bool sameLetters(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
  }
  bool isFolder(const std::string& path) const {
    if (path.empty() || std::find(folders_.begin(), folders_.end(), path) != folders_.end()) {
      return true;
    }
    const auto it = entries_.lower_bound(path + "/");
    return it != entries_.end() && it->first.starts_with(path + "/");
  }

  mutable std::map<std::string, Entry> entries_;
  mutable std::vector<std::string> folders_;
  mutable std::uint64_t lastIdentity_ = 0;
};

}  // namespace quorvane
