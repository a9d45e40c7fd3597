#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvane {

class Files;

/// Copies of one kind in the cache folder, kept within bounds. When there are too many, those that
/// were not used for longest go. What an earlier run left counts too: the folder is read once, at
/// the first use. Other files in the folder are never touched.
class BoundedCopies {
 public:
  struct Bounds {
    std::size_t mostCopies;
    std::uint64_t mostBytes;
  };

  /// `isCopy` knows the kind by the names in the folder. The files outlive the object.
  BoundedCopies(const Files& files, bool (*isCopy)(std::string_view name), Bounds bounds)
      : files_(files), isCopy_(isCopy), bounds_(bounds) {}

  /// To be told of every copy that is about to be sent, new or not, with its size in bytes. This
  /// one stays, others may go. All copies lie in one folder.
  void used(const std::string& path, std::uint64_t size);

 private:
  struct Copy {
    std::string path;
    std::uint64_t size = 0;
  };
  using Copies = std::list<Copy>;

  void readFolder(std::string_view folder);
  void putFirst(const std::string& path, std::uint64_t size);
  void makeRoom();
  bool isGone(const Copy& copy) const;
  void forget(Copies::iterator copy);

  const Files& files_;
  bool (*const isCopy_)(std::string_view name);
  const Bounds bounds_;
  Copies copies_;  ///< last used first
  std::unordered_map<std::string, Copies::iterator> byPath_;
  std::uint64_t bytes_ = 0;
  bool folderRead_ = false;
};

}  // namespace quorvane
