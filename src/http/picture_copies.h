#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quorvane {

class Files;
struct ImageRendering;

/// The resized pictures in the cache folder, kept within bounds: clients choose the sizes, and
/// could fill the disk with them. When there are too many, those that were not used for longest
/// go. What an earlier run left counts too: the folder is read once, at the first use. Other files
/// in the folder are never touched.
class PictureCopies {
 public:
  static constexpr std::size_t kMostCopies = 1024;
  static constexpr std::uint64_t kMostBytes = std::uint64_t{256} << 20;

  explicit PictureCopies(const Files& files) : files_(files) {}

  /// A copy's name in the cache folder. Neither the aspect ratio nor grey is part of it: who asks
  /// first settles the look of the copy.
  static std::string nameOf(const ImageRendering& wanted, std::string_view fileName);

  /// Whether a file of the cache folder is a copy, or the compressed copy of one.
  static bool isCopy(std::string_view name);

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
  Copies copies_;  ///< last used first
  std::unordered_map<std::string, Copies::iterator> byPath_;
  std::uint64_t bytes_ = 0;
  bool folderRead_ = false;
};

}  // namespace quorvane
