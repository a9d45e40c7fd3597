#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "support/files.h"

namespace quorvane {

/// A stretch of a file, sent by the kernel without passing through the server's memory.
struct FileSlice {
  std::shared_ptr<const OpenFile> file;
  std::uint64_t offset = 0;
  std::uint64_t length = 0;  ///< bytes
};

/// Bytes of its own, bytes shared with a cache, or part of a file.
using BodySegment = std::variant<std::string, std::shared_ptr<const std::string>, FileSlice>;

/// The body of a response, sent segment after segment. Nearly every body is one segment; only
/// answers put together from several file slices have more.
struct Body {
  Body() = default;
  Body(std::string bytes) : first(std::move(bytes)) {}                           // NOLINT
  Body(const char* text) : first(std::string(text)) {}                           // NOLINT
  Body(std::shared_ptr<const std::string> shared) : first(std::move(shared)) {}  // NOLINT
  Body(FileSlice slice) : first(std::move(slice)) {}                             // NOLINT

  BodySegment first;
  std::vector<BodySegment> rest;  ///< follow `first`, in order
};

inline std::uint64_t segmentLength(const BodySegment& segment) {
  if (const auto* own = std::get_if<std::string>(&segment)) return own->size();
  if (const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&segment)) {
    return *shared ? (*shared)->size() : 0;
  }
  return std::get<FileSlice>(segment).length;
}

inline std::uint64_t bodyLength(const Body& body) {
  std::uint64_t length = segmentLength(body.first);
  for (const BodySegment& segment : body.rest) length += segmentLength(segment);
  return length;
}

}  // namespace quorvane
