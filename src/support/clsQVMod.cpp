#include "support/clsQVMod.h"

#include <algorithm>
#include <optional>

#include "support/clsZipString.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kTag = "QVMOD";
constexpr std::uint8_t kCheckByte = 164;
constexpr std::size_t kHeaderLength = 13;
/// A record's four text fields take no more than this besides the content.
constexpr std::size_t kMostFieldBytes = 65536;

/// Reads little-endian numbers off the front of a text. Once something is missing everything
/// reads as nothing.
class Reader {
 public:
  explicit Reader(std::string_view text) : left_(text) {}

  std::optional<std::string_view> bytes(std::size_t count) {
    if (count > left_.size()) {
      left_ = {};
      return std::nullopt;
    }
    const std::string_view taken = left_.substr(0, count);
    left_.remove_prefix(count);
    return taken;
  }
  std::optional<std::uint32_t> number(std::size_t width) {
    const auto raw = bytes(width);
    if (!raw) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = width; i-- > 0;) {
      value = value << 8 | static_cast<unsigned char>((*raw)[i]);
    }
    return value;
  }
  std::optional<std::int32_t> signedLong() {
    const auto value = number(4);
    if (!value) return std::nullopt;
    return static_cast<std::int32_t>(*value);
  }

 private:
  std::string_view left_;
};

struct EntryHeader {
  std::uint8_t number = 0;
  std::int32_t contentLength = 0;
  std::string_view packed;
  std::uint8_t nameLength = 0;
};

std::optional<EntryHeader> readEntry(Reader& reader) {
  const auto number = reader.number(1);
  const auto contentLength = reader.signedLong();
  const auto packedLength = reader.signedLong();
  if (!number || !contentLength || !packedLength || *packedLength < 0) return std::nullopt;
  reader.bytes(2);
  const auto packed = reader.bytes(static_cast<std::size_t>(*packedLength));
  const auto nameLength = reader.number(1);
  if (!packed || !nameLength) return std::nullopt;
  return EntryHeader{static_cast<std::uint8_t>(*number), *contentLength, *packed,
                     static_cast<std::uint8_t>(*nameLength)};
}

/// The number of entries that a module's header gives, or nothing when it is no module.
std::optional<int> entryCountOf(Reader& reader, std::size_t fileLength) {
  const auto tag = reader.bytes(kTag.size());
  reader.bytes(1);
  const auto length = reader.signedLong();
  const auto count = reader.number(2);
  const auto check = reader.number(1);
  if (!check || *tag != kTag || *check != kCheckByte) return std::nullopt;
  if (*length < 0 || static_cast<std::size_t>(*length) != fileLength) return std::nullopt;
  return static_cast<std::int16_t>(*count);
}

/// Builders write the date in their own locale's way, so any text with something other than zeros
/// in it counts.
bool isDateGiven(std::string_view text) {
  return text.find_first_of("123456789") != std::string_view::npos;
}

/// A folder of a single character keeps no separator behind it; modules in the field are built
/// with that in mind.
std::string folderKey(std::string_view folder) {
  std::string key = replaceAll(folder, "/", "\\");
  if (key != "\\") {
    if (key.starts_with('\\')) key.erase(0, 1);
    if (key.size() > 1 && !key.ends_with('\\')) key += '\\';
  }
  std::replace(key.begin(), key.end(), '\\', '$');
  if (!key.starts_with('$')) key.insert(key.begin(), '$');
  return key;
}

std::string pathKey(std::string_view path) {
  std::string key(path);
  for (char& c : key) {
    if (paths::isSeparator(c)) c = '$';
  }
  return key;
}

}  // namespace

/// An unpacked entry.
struct clsQVMod::Record {
  std::string folder;
  std::string name;
  std::string content;
};

void clsQVMod::setModFolder(std::string nv) {
  contents_.clear();
  loadedKeys_.clear();
  lastPath_.clear();
  lastKey_.clear();
  const std::string folder = paths::withSeparator(std::move(nv));
  for (const std::string& name : files_.list(folder)) {
    if (!equalsNoCase(paths::extensionOf(name), ".qvm")) continue;
    const std::string path = folder + name;
    if (!followLinks_ && !files_.leadsBelow(path, folder)) continue;
    if (const auto module = files_.readAll(path)) loadModule(*module);
  }
}

void clsQVMod::loadModule(std::string_view module) {
  if (module.size() < kHeaderLength) return;
  Reader reader(module);
  const auto count = entryCountOf(reader, module.size());
  if (!count) return;
  for (int number = 1; number <= *count; ++number) {
    const auto entry = readEntry(reader);
    // The entry number is one byte: no entry after the 255th can match.
    if (!entry || entry->number != number) return;
    if (!loadEntry(entry->packed, entry->contentLength, entry->nameLength)) return;
  }
}

bool clsQVMod::loadEntry(std::string_view packed, std::int32_t claimedLength,
                         std::uint8_t nameLength) {
  if (claimedLength <= 0) return false;
  const std::size_t most = std::min(static_cast<std::size_t>(claimedLength) + kMostFieldBytes,
                                    clsZipString::kMostUnpacked);
  std::string text(packed);
  if (!clsZipString::UncompressStringB(text, clsZipString::kGzip, most)) return false;

  std::string_view fields[4];
  std::size_t start = 0;
  for (std::string_view& field : fields) {
    const std::size_t end = text.find('\0', start);
    if (end == std::string::npos) return false;
    field = std::string_view(text).substr(start, end - start);
    start = end + 1;
  }
  const auto [folder, name, size, date] = fields;
  if (!isDateGiven(date) || name.empty() || numericLong(size) != claimedLength) return false;
  if (static_cast<std::uint8_t>(name.size()) != nameLength) return false;
  if (text.size() - start != static_cast<std::size_t>(claimedLength)) return false;
  keep({folderKey(folder), std::string(name), text.substr(start)});
  return true;
}

void clsQVMod::keep(const Record& record) {
  std::string_view name = record.name;
  const bool isVariant = name.find('$') != std::string_view::npos;
  if (isVariant) {
    const std::string prefix = std::to_string(language_) + '$';
    if (!name.starts_with(prefix)) return;
    name.remove_prefix(prefix.size());
  }
  std::string key = lowerCase(record.folder + std::string(name));
  if (!isVariant && loadedKeys_.find(key) != std::string::npos) return;
  loadedKeys_ += key;
  contents_.put(std::move(key), std::make_shared<const std::string>(record.content));
}

const clsQVMod::Content* clsQVMod::find(const std::string& modPath, bool leadingSeparator) {
  if (contents_.empty()) return nullptr;
  if (modPath != lastPath_ || lastKey_.empty()) {
    lastPath_ = modPath;
    lastKey_ = pathKey(modPath);
    if (lastKey_.empty() || (leadingSeparator && !lastKey_.starts_with('$'))) {
      lastKey_.insert(lastKey_.begin(), '$');
    }
  }
  return contents_.find(lastKey_);
}

bool clsQVMod::ModFileExists(const std::string& modPath) {
  return find(modPath, true) != nullptr;
}

std::string clsQVMod::ModReadFile(const std::string& modPath) {
  const Content* content = find(modPath, false);
  return content ? **content : std::string();
}

std::shared_ptr<const std::string> clsQVMod::sharedFile(const std::string& modPath) {
  const Content* content = find(modPath, false);
  return content ? *content : nullptr;
}

}  // namespace quorvane
