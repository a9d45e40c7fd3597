#include "support/files.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>

#include "platform/system.h"
#include "platform/windows/handle.h"
#include "platform/windows/open_file.h"
#include "platform/windows/wide_text.h"

namespace quorvane {

namespace {

constexpr DWORD kLongestPath = 32768;
/// Editors may hold a file open, write it, and put another in its place meanwhile.
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

TimePoint pointOf(const FILETIME& time) {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  constexpr std::int64_t kTo1970 = 116'444'736'000'000'000;  ///< ticks, from 1601
  const auto high = static_cast<std::int64_t>(time.dwHighDateTime);
  const Ticks since1970((high << 32 | time.dwLowDateTime) - kTo1970);
  return TimePoint(std::chrono::duration_cast<TimePoint::duration>(since1970));
}

std::uint64_t whole(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

/// A name of its own for the file, and not a device, a stream of a file or what the system takes
/// for another name.
bool isPlain(std::wstring_view path) {
  if (path.find_first_of(L"*?<>|\"") != path.npos || path.find(L'\0') != path.npos) return false;
  if (path.find(L':', 2) != path.npos) return false;
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find(L'\\', begin), path.size());
    const std::wstring_view part = path.substr(begin, end - begin);
    const bool isUpwards = part == L"." || part == L"..";
    if (!part.empty() && !isUpwards && (part.back() == L'.' || part.back() == L' ')) return false;
    begin = end + 1;
  }
  return true;
}

using Attributes = WIN32_FILE_ATTRIBUTE_DATA;

/// Nothing for what is not there; of devices that have names like files the system says that they
/// are.
std::optional<Attributes> attributesOf(const std::wstring& path) {
  Attributes found{};
  const bool isThere = isPlain(path) &&
                       ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found) != 0 &&
                       (found.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) == 0;
  return isThere ? std::optional(found) : std::nullopt;
}

bool isFolder(const Attributes& found) {
  return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// A file's number costs a hundred times as much as all of this; one that comes in its place is of
/// another time.
FileInfo infoOf(const Attributes& found) {
  return {isFolder(found) ? 0 : whole(found.nFileSizeHigh, found.nFileSizeLow),
          pointOf(found.ftLastWriteTime),
          whole(found.ftCreationTime.dwHighDateTime, found.ftCreationTime.dwLowDateTime),
          isFolder(found)};
}

bool equalsNoCase(std::wstring_view a, std::wstring_view b) {
  return ::CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

/// `path` from the separator at `begin` on as the file system spells it; nothing for what was asked
/// for by another name than its own. What stands before may be a short name. Part by part, since
/// what makes short names long looks at nothing else.
std::optional<std::wstring> spelled(const std::wstring& path, std::size_t begin) {
  std::wstring own;
  while (begin < path.size()) {
    const std::size_t end = std::min(path.find(L'\\', begin + 1), path.size());
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW(path.substr(0, end).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return std::nullopt;
    ::FindClose(search);
    const std::wstring_view asked = std::wstring_view(path).substr(begin + 1, end - begin - 1);
    if (!equalsNoCase(entry.cFileName, asked)) return std::nullopt;
    own.append(1, L'\\').append(entry.cFileName);
    begin = end;
  }
  return own;
}

/// With all links followed.
std::wstring finalPath(const std::string& path) {
  const SystemHandle handle(::CreateFileW(widePathOf(path).c_str(), 0, kShared, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.isOpen()) return {};
  std::wstring text(kLongestPath, L'\0');
  text.resize(::GetFinalPathNameByHandleW(handle.get(), text.data(), kLongestPath, 0));
  return text;
}

bool writeWhole(const SystemHandle& file, std::string_view bytes) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto length = static_cast<DWORD>(std::min(bytes.size(), kMost));
    if (!::WriteFile(file.get(), bytes.data(), length, &count, nullptr) || count == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

/// Beside its place, so that it can be put there in one step.
std::wstring temporaryName(const std::wstring& path) {
  static std::atomic<unsigned> made{0};
  return path + L'.' + std::to_wstring(::GetCurrentProcessId()) + L'-' + std::to_wstring(++made);
}

class WindowsFiles final : public Files {
 public:
  std::optional<FileInfo> stat(const std::string& path) const override {
    const auto found = attributesOf(widePathOf(path));
    return found ? std::optional(infoOf(*found)) : std::nullopt;
  }

  std::optional<std::string> find(const RootedPath& wanted) const override {
    const std::wstring path = widePathOf(wanted.text());
    if (!attributesOf(path)) return std::nullopt;
    // The root is taken as it is, and ends with a separator that counts with what follows.
    const std::wstring root = widePathOf(std::string(wanted.root()));
    if (path.size() <= root.size()) return wanted.text();
    const auto own = spelled(path, root.size() - 1);
    if (!own) return std::nullopt;
    return std::string(wanted.root()) + pathOf(own->substr(1));
  }

  bool leadsBelow(const std::string& path, const std::string& root) const override {
    const std::wstring inner = finalPath(path);
    std::wstring outer = finalPath(root);
    if (inner.empty() || outer.empty()) return false;
    if (equalsNoCase(inner, outer)) return true;
    if (outer.back() != L'\\') outer += L'\\';
    return inner.size() > outer.size() &&
           equalsNoCase(std::wstring_view(inner).substr(0, outer.size()), outer);
  }

  std::shared_ptr<const OpenFile> open(const std::string& path) const override {
    const std::wstring wide = widePathOf(path);
    const auto found = attributesOf(wide);
    if (!found || isFolder(*found)) return nullptr;
    SystemHandle handle(::CreateFileW(wide.c_str(), GENERIC_READ, kShared, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    FileInfo info = infoOf(*found);
    FILETIME written{};
    if (!handle.isOpen() || ::GetFileType(handle.get()) != FILE_TYPE_DISK ||
        !::GetFileSizeEx(handle.get(), &size) ||
        !::GetFileTime(handle.get(), nullptr, nullptr, &written)) {
      return nullptr;
    }
    info.size = static_cast<std::uint64_t>(size.QuadPart);
    info.modified = pointOf(written);
    return std::make_shared<HandleFile>(std::move(handle), info);
  }

  std::optional<std::string> readAll(const std::string& path) const override {
    const auto file = open(path);
    if (!file) return std::nullopt;
    std::string bytes;
    // It may have grown meanwhile.
    for (std::size_t room = static_cast<std::size_t>(file->info().size) + 1;;) {
      const std::size_t before = bytes.size();
      bytes.resize(before + room);
      const std::size_t count = file->read(before, bytes.data() + before, room);
      bytes.resize(before + count);
      if (count < room) return bytes;
      room = std::size_t{64} << 10;
    }
  }

  /// A file that somebody reads can be replaced, but not by giving another its name.
  bool writeAll(const std::string& path, std::string_view bytes) const override {
    const std::wstring target = widePathOf(path);
    const auto present = attributesOf(target);
    if (!isPlain(target) || (present && isFolder(*present))) return false;
    const std::wstring temporary = temporaryName(target);
    SystemHandle file(::CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.isOpen()) return false;
    const bool written = writeWhole(file, bytes);
    file.close();
    constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS;
    if (written &&
        (::ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, kFlags, nullptr, nullptr) ||
         ::MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING))) {
      return true;
    }
    ::DeleteFileW(temporary.c_str());
    return false;
  }

  bool append(const std::string& path, std::string_view bytes) const override {
    const std::wstring wide = widePathOf(path);
    if (!isPlain(wide)) return false;
    const SystemHandle file(::CreateFileW(wide.c_str(), FILE_APPEND_DATA, kShared, nullptr,
                                          OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.isOpen() && ::GetFileType(file.get()) == FILE_TYPE_DISK && writeWhole(file, bytes);
  }

  bool remove(const std::string& path) const override {
    return ::DeleteFileW(widePathOf(path).c_str()) != 0;
  }

  bool removeFolder(const std::string& path) const override {
    return ::RemoveDirectoryW(widePathOf(path).c_str()) != 0;
  }

  bool rename(const std::string& from, const std::string& to) const override {
    const std::wstring target = widePathOf(to);
    return isPlain(target) && ::MoveFileExW(widePathOf(from).c_str(), target.c_str(), 0) != 0;
  }

  std::optional<FileMarks> marks(const std::string& path) const override {
    const auto found = attributesOf(widePathOf(path));
    if (!found) return std::nullopt;
    return FileMarks{pointOf(found->ftCreationTime), pointOf(found->ftLastAccessTime),
                     (found->dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0,
                     (found->dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0};
  }

  bool setReadOnly(const std::string& path, bool readOnly) const override {
    const std::wstring wide = widePathOf(path);
    const auto found = attributesOf(wide);
    if (!found) return false;
    const DWORD others = found->dwFileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    const DWORD all = others | (readOnly ? FILE_ATTRIBUTE_READONLY : 0);
    return ::SetFileAttributesW(wide.c_str(), all) != 0;
  }

  std::optional<VolumeRoom> room(const std::string& path) const override {
    ULARGE_INTEGER available{};
    ULARGE_INTEGER size{};
    ULARGE_INTEGER free{};
    std::wstring folder = widePathOf(path);
    const auto found = attributesOf(folder);
    if (found && !isFolder(*found)) folder.resize(folder.find_last_of(L'\\') + 1);
    if (!::GetDiskFreeSpaceExW(folder.c_str(), &available, &size, &free)) return std::nullopt;
    return VolumeRoom{size.QuadPart, free.QuadPart, available.QuadPart};
  }

  bool makeFolder(const std::string& path) const override {
    const std::wstring wide = widePathOf(path);
    return isPlain(wide) && ::CreateDirectoryW(wide.c_str(), nullptr) != 0;
  }

  std::vector<std::string> list(const std::string& folder) const override {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW((widePathOf(folder) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
      const std::wstring_view name = entry.cFileName;
      if (name != L"." && name != L"..") names.push_back(pathOf(name));
    } while (::FindNextFileW(search, &entry));
    ::FindClose(search);
    return names;
  }
};

}  // namespace

std::size_t HandleFile::read(std::uint64_t offset, char* out, std::size_t length) const {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  std::size_t done = 0;
  while (done < length) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset + done);
    place.OffsetHigh = static_cast<DWORD>((offset + done) >> 32);
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(length - done, kMost));
    if (!::ReadFile(handle_.get(), out + done, wanted, &count, &place) || count == 0) break;
    done += count;
  }
  return done;
}

std::unique_ptr<Files> makeFiles() {
  return std::make_unique<WindowsFiles>();
}

}  // namespace quorvane
