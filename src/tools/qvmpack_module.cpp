#include "tools/qvmpack_module.h"

#include <array>
#include <cstdint>
#include <limits>

#include "support/clsZipString.h"

namespace quorvane {

namespace {

constexpr std::string_view kTag = "QVMOD";
constexpr std::uint8_t kCheckByte = 164;
constexpr std::size_t kHeaderLength = 13;
constexpr std::size_t kLengthOffset = 6;
constexpr std::size_t kCountOffset = 10;
constexpr std::size_t kEntryHeaderLength = 11;  // the name's length follows the packed record
constexpr std::size_t kMostEntries = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t kMostBytes = std::numeric_limits<std::int32_t>::max();
/// Content whose length is a multiple of this can't be unpacked.
constexpr std::size_t kUnpackableStep = 65536;
/// A record's fields take no more than this besides the content.
constexpr std::size_t kMostFieldBytes = 65536;

void append(std::string& out, std::uint64_t value, int width) {
  for (int i = 0; i < width; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

std::uint32_t numberAt(std::string_view bytes, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return value;
}

std::string recordOf(const std::string& folder, const ModuleFile& file) {
  return folder + '\0' + file.name + '\0' + std::to_string(file.content.size()) + '\0' + file.date +
         '\0' + file.content;
}

/// The folder is written with the separator at its end, without which the reader takes a folder
/// of one letter for the beginning of the name. One more separator in front means nothing to the
/// reader and gives the record another length where it has one that can't be unpacked.
std::string recordOf(const ModuleFile& file) {
  std::string folder = file.folder + '/';
  if (recordOf(folder, file).size() % kUnpackableStep == 0) {
    folder = file.folder.empty() ? "" : '/' + folder;
  }
  return recordOf(folder, file);
}

std::string entryOf(const ModuleFile& file, std::size_t number) {
  std::string record = recordOf(file);
  clsZipString::CompressStringB(record, clsZipString::kGzip);
  std::string entry;
  append(entry, number, 1);
  append(entry, file.content.size(), 4);
  append(entry, record.size(), 4);
  append(entry, 0, 2);
  entry += record;
  append(entry, file.name.size(), 1);
  return entry;
}

struct Entry {
  std::size_t contentLength = 0;
  std::string_view packed;
  std::uint8_t nameLength = 0;
};

/// Takes the next entry off the front of `left`; a text instead when it can't.
std::optional<Entry> takeEntry(std::string_view& left, std::size_t number, std::string& problem) {
  if (left.size() < kEntryHeaderLength) {
    problem = "the module ends early";
    return std::nullopt;
  }
  if (numberAt(left, 0, 1) != number) {
    problem = number > kMostUsableEntries ? "entries after the 255th can't be numbered"
                                          : "the number is " + std::to_string(numberAt(left, 0, 1));
    return std::nullopt;
  }
  const std::size_t packedLength = numberAt(left, 5, 4);
  if (packedLength >= left.size() - kEntryHeaderLength) {
    problem = "the module ends early";
    return std::nullopt;
  }
  const Entry entry{numberAt(left, 1, 4), left.substr(kEntryHeaderLength, packedLength),
                    static_cast<std::uint8_t>(left[kEntryHeaderLength + packedLength])};
  left.remove_prefix(kEntryHeaderLength + packedLength + 1);
  return entry;
}

bool splitRecord(const std::string& record, ModuleFile& file, std::string& size) {
  const std::array<std::string*, 4> fields = {&file.folder, &file.name, &size, &file.date};
  std::size_t start = 0;
  for (std::string* field : fields) {
    const std::size_t end = record.find('\0', start);
    if (end == std::string::npos) return false;
    *field = record.substr(start, end - start);
    start = end + 1;
  }
  file.content = record.substr(start);
  return true;
}

std::optional<ModuleFile> fileOf(const Entry& entry, std::string& problem) {
  std::string record(entry.packed);
  if (!clsZipString::UncompressStringB(record, clsZipString::kGzip,
                                       entry.contentLength + kMostFieldBytes)) {
    problem = "its record can't be unpacked";
    return std::nullopt;
  }
  ModuleFile file;
  file.packedLength = entry.packed.size();
  std::string size;
  if (!splitRecord(record, file, size)) {
    problem = "its record lacks fields";
  } else if (file.name.empty()) {
    problem = "it has no name";
  } else if (file.date.find_first_of("123456789") == std::string::npos) {
    problem = "it has no date";
  } else if (file.content.empty()) {
    problem = "it is empty";
  } else if (size != std::to_string(file.content.size()) ||
             entry.contentLength != file.content.size()) {
    problem = "its lengths contradict each other";
  } else if (entry.nameLength != file.name.size() % 256) {
    problem = "the length of its name is wrong";
  } else {
    return file;
  }
  return std::nullopt;
}

std::string headerProblem(std::string_view bytes) {
  if (bytes.size() < kHeaderLength || !bytes.starts_with(kTag) ||
      static_cast<std::uint8_t>(bytes[kHeaderLength - 1]) != kCheckByte) {
    return "This is no resource module.";
  }
  if (numberAt(bytes, kLengthOffset, 4) != bytes.size()) {
    return "The module says it has " + std::to_string(numberAt(bytes, kLengthOffset, 4)) +
           " bytes; the server does not read it.";
  }
  return {};
}

}  // namespace

std::optional<std::string> writeModule(std::span<const ModuleFile> files) {
  if (files.size() > kMostEntries) return std::nullopt;
  std::string bytes(kTag);
  append(bytes, 0, 1);
  append(bytes, 0, 4);  // the length, set below
  append(bytes, files.size(), 2);
  append(bytes, kCheckByte, 1);
  for (std::size_t i = 0; i < files.size(); ++i) {
    bytes += entryOf(files[i], i + 1);
    if (bytes.size() > kMostBytes) return std::nullopt;
  }
  std::string length;
  append(length, bytes.size(), 4);
  bytes.replace(kLengthOffset, length.size(), length);
  return bytes;
}

ModuleContents readModule(std::string_view bytes) {
  ModuleContents contents;
  contents.problem = headerProblem(bytes);
  if (!contents.problem.empty()) return contents;
  const auto count = static_cast<std::int16_t>(numberAt(bytes, kCountOffset, 2));
  std::string_view left = bytes.substr(kHeaderLength);
  for (int number = 1; number <= count; ++number) {
    std::string problem;
    const auto entry = takeEntry(left, static_cast<std::size_t>(number), problem);
    auto file = entry ? fileOf(*entry, problem) : std::nullopt;
    if (!file) {
      contents.problem = "Reading stops at entry " + std::to_string(number) + " of " +
                         std::to_string(count) + ": " + problem + ".";
      return contents;
    }
    contents.files.push_back(std::move(*file));
  }
  if (!left.empty()) contents.problem = "There are bytes after the last entry.";
  return contents;
}

}  // namespace quorvane
