#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/clsZipString.h"

namespace quorvane {

/// Builds resource modules, sound ones and lying ones.
struct ModuleEntry {
  std::string folder;
  std::string name;
  std::string content;
  std::string date = "2007-03-15 14:15:02";

  // What an honest builder computes; a value of -1 takes the honest one.
  int number = -1;
  std::int64_t claimedLength = -1;
  std::int64_t packedLength = -1;
  int nameLength = -1;
  std::string sizeText = "";
};

struct ModuleBuilder {
  std::vector<ModuleEntry> entries;
  int claimedCount = -1;
  std::int64_t lengthError = 0;
  std::string tag = "QVMOD";
  int checkByte = 164;

  std::string build() const {
    std::string body;
    int position = 0;
    for (const ModuleEntry& entry : entries) body += entryBytes(entry, ++position);
    std::string module = tag + '\0';
    append(module, static_cast<std::int64_t>(body.size()) + 13 + lengthError, 4);
    append(module, claimedCount < 0 ? static_cast<std::int64_t>(entries.size()) : claimedCount, 2);
    append(module, checkByte, 1);
    return module + body;
  }

 private:
  static void append(std::string& text, std::int64_t value, int width) {
    for (int i = 0; i < width; ++i) text += static_cast<char>(value >> (8 * i));
  }

  static std::string entryBytes(const ModuleEntry& entry, int position) {
    const auto length = static_cast<std::int64_t>(entry.content.size());
    const std::string sizeText = entry.sizeText.empty() ? std::to_string(length) : entry.sizeText;
    std::string record = entry.folder + '\0' + entry.name + '\0' + sizeText + '\0' + entry.date +
                         '\0' + entry.content;
    clsZipString::CompressStringB(record, clsZipString::kGzip);
    const auto packed = static_cast<std::int64_t>(record.size());
    std::string bytes;
    append(bytes, entry.number < 0 ? position : entry.number, 1);
    append(bytes, entry.claimedLength < 0 ? length : entry.claimedLength, 4);
    append(bytes, entry.packedLength < 0 ? packed : entry.packedLength, 4);
    bytes += "??";
    bytes += record;
    append(bytes,
           entry.nameLength < 0 ? static_cast<std::int64_t>(entry.name.size()) : entry.nameLength,
           1);
    return bytes;
  }
};

/// `bytes` with a header that gives their own length, so that reading a cut module goes on to the
/// cut. A header that is cut itself stays as it is.
inline std::string withItsLength(std::string bytes) {
  constexpr std::size_t kLengthOffset = 6;
  if (bytes.size() < kLengthOffset + 4) return bytes;
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[kLengthOffset + i] = static_cast<char>(bytes.size() >> (8 * i));
  }
  return bytes;
}

}  // namespace quorvane
