#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "http/content_cache.h"
#include "http/targets.h"
#include "support/files.h"

namespace quorvane {

/// Compressed copies of static files, kept in the cache folder. A copy that exists is used as it
/// is, whatever has become of its source: emptying the cache folder is how a site is renewed.
class GzipCopies {
 public:
  /// Larger files are not compressed: one thread serves all, and the work is done in memory.
  static constexpr std::uint64_t kMostSourceBytes = std::uint64_t{64} << 20;

  GzipCopies(const Files& files, ContentCache& contents) : files_(files), contents_(contents) {}

  /// The copy's name in the cache folder: the URL path in upper case, "^" for every separator.
  static std::string nameOf(std::string_view urlPath);

  /// False for paths with empty parts or parts that end in a dot: those are further spellings of a
  /// path, and clients could fill the disk with a copy for each.
  static bool isKept(std::string_view urlPath);

  /// The copy's content, made and stored when there is none yet. Nothing when the file is too
  /// large; the caller then sends it plain.
  std::optional<Body> stored(const FoundFile& source, const std::string& copyPath);

  /// The file compressed for this one answer, nothing stored.
  std::optional<Body> fresh(const FoundFile& source);

 private:
  std::optional<std::string> packed(const FoundFile& source);

  const Files& files_;
  ContentCache& contents_;
};

}  // namespace quorvane
