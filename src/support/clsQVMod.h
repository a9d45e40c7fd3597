#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "support/keyed_collection.h"

namespace quorvane {

class Files;

/// The files of resource modules (".qvm"), unpacked into memory when the folder is set and asked
/// for by URL path. No member fails loudly: a damaged module gives the entries before the first
/// bad one. Nothing is allocated by a number that a module claims.
///
/// A file's key is its path in lower case with "$" for every separator, "$" in front.
class clsQVMod {
 public:
  /// `files` outlives the object.
  explicit clsQVMod(const Files& files) : files_(files) {}

  /// Language whose variants are preferred; set before `ModFolder`.
  std::int32_t LanguageID() const { return language_; }
  void setLanguageID(std::int32_t language) { language_ = language; }

  /// Whether modules to which symbolic links lead from elsewhere are loaded; set before
  /// `ModFolder`.
  void setFollowLinks(bool follow) { followLinks_ = follow; }

  /// Drops everything loaded and loads every module in the folder, in the file system's order.
  void setModFolder(std::string nv);

  bool ModFileExists(const std::string& modPath);

  /// The content; empty when it is not held.
  std::string ModReadFile(const std::string& modPath);

  /// The same content shared rather than copied; null when it is not held or empty.
  std::shared_ptr<const std::string> sharedFile(const std::string& modPath);

  /// Whether nothing is held at all.
  bool empty() const { return contents_.empty(); }

  /// Loads one module from its bytes, after what is loaded already.
  void loadModule(std::string_view module);

 private:
  struct Record;
  using Content = std::shared_ptr<const std::string>;

  bool loadEntry(std::string_view packed, std::int32_t claimedLength, std::uint8_t nameLength);
  void keep(const Record& record);
  const Content* find(const std::string& modPath, bool leadingSeparator);

  const Files& files_;
  bool followLinks_ = true;
  std::int32_t language_ = 0;
  KeyedCollection<Content> contents_;
  /// Every key in one text with nothing between: a key that occurs inside an earlier, longer one
  /// counts as loaded.
  std::string loadedKeys_;
  std::string lastPath_;
  std::string lastKey_;
};

}  // namespace quorvane
