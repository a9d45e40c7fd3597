#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "platform/files.h"

/// A stretch of a file, sent by the kernel without passing through the server's memory.
struct FileSlice {
  std::shared_ptr<const OpenFile> file;
  std::uint64_t offset = 0;
  std::uint64_t length = 0;  ///< bytes
};

/// The body of a response: bytes of its own, bytes shared with a cache, or part of a file.
using Body = std::variant<std::string, std::shared_ptr<const std::string>, FileSlice>;

inline std::uint64_t bodyLength(const Body& body) {
  if (const auto* own = std::get_if<std::string>(&body)) return own->size();
  if (const auto* shared = std::get_if<std::shared_ptr<const std::string>>(&body)) {
    return *shared ? (*shared)->size() : 0;
  }
  return std::get<FileSlice>(body).length;
}
