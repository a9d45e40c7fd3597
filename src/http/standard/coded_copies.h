#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "http/bounded_copies.h"
#include "http/content_cache.h"
#include "http/side_work.h"
#include "http/targets.h"
#include "platform/services.h"
#include "support/content_coding.h"

namespace quorvane {

/// Files in other codings, kept in the cache folder within bounds. A copy's name says of which
/// version of which file it is, so that a file that has changed gets another one.
class CodedCopies {
 public:
  /// Larger files are not coded: the work is done in memory.
  static constexpr std::uint64_t kMostSourceBytes = std::uint64_t{64} << 20;

  static constexpr BoundedCopies::Bounds kBounds{8192, std::uint64_t{512} << 20};

  /// How long no copy is tried after one that could not be kept, on a full disk say: clients would
  /// wait for the work and have nothing of it.
  static constexpr std::chrono::minutes kPause{1};

  /// Both outlive the object.
  CodedCopies(const Services& services, ContentCache& contents)
      : services_(services), contents_(contents), kept_(services.files, isCopy, kBounds) {}

  /// The copy's name in the cache folder.
  static std::string nameOf(const FoundFile& source, ContentCoding coding);
  static bool isCopy(std::string_view name);

  /// The copy, when there is one.
  std::optional<Body> present(const FoundFile& source, ContentCoding coding);

  /// The copy when there is none and can be one, else empty.
  Making lacking(const FoundFile& source, ContentCoding coding);

 private:
  using Moment = std::atomic<TimePoint>;

  const std::string& pathOf(const FoundFile& source, ContentCoding coding);

  const Services& services_;
  ContentCache& contents_;
  BoundedCopies kept_;

  // What was asked for last; each request asks twice.
  FoundFile lastSource_;
  ContentCoding lastCoding_ = ContentCoding::Identity;
  std::string lastPath_;

  const std::shared_ptr<Moment> lastFailure_ = std::make_shared<Moment>(TimePoint::min());
};

}  // namespace quorvane
