#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/content_coding.h"
#include "support/files.h"

namespace quorvane {

/// What tells two versions of a representation apart.
struct Validators {
  std::string tag;  ///< an entity tag, always a strong one
  std::optional<std::chrono::sys_seconds> modified;

  /// Of a file in some coding. They follow from nothing but its size and its time, so that several
  /// machines with the same files agree. A file that has changed just now may change again without
  /// a trace in its time: until that is over every answer has a tag of its own.
  static Validators ofFile(const FileInfo& info, ContentCoding coding, TimePoint now);

  /// Whether that time is over.
  static bool isSettled(const FileInfo& info, TimePoint now);

  /// Of content that has no time: the tag follows from the content.
  static Validators ofContent(std::string_view content);
};

namespace entity_tags {

/// Whether a list of entity tags, or "*", names one: by strong comparison, which a weak tag never
/// fits, or by weak comparison.
bool names(std::string_view list, std::string_view tag, bool strongly);

}  // namespace entity_tags

/// A text as a number of 64 bits. For telling apart what nobody forges.
std::uint64_t fingerprint(std::string_view text);

}  // namespace quorvane
