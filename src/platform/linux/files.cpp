#include "support/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "platform/linux/name_index.h"
#include "platform/linux/open_file.h"
#include "platform/system.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

std::optional<std::string> realPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), ::free);
  return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

/// Only files and folders are told of: a pipe or a device among them would block its reader.
std::optional<FileInfo> infoOf(const struct stat& info) {
  if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode)) return std::nullopt;
  const auto modified =
      std::chrono::seconds(info.st_mtim.tv_sec) + std::chrono::nanoseconds(info.st_mtim.tv_nsec);
  return FileInfo{
      static_cast<std::uint64_t>(info.st_size),
      TimePoint(std::chrono::duration_cast<TimePoint::duration>(modified)),
      static_cast<std::uint64_t>(info.st_ino) ^ (static_cast<std::uint64_t>(info.st_dev) << 48),
      S_ISDIR(info.st_mode)};
}

TimePoint pointOf(const statx_timestamp& time) {
  const auto since = std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  return TimePoint(std::chrono::duration_cast<TimePoint::duration>(since));
}

constexpr mode_t kWriters = S_IWUSR | S_IWGRP | S_IWOTH;

bool readRest(int descriptor, std::string& bytes) {
  char block[64 * 1024];
  for (;;) {
    const ssize_t count = ::read(descriptor, block, sizeof block);
    if (count == 0) return true;
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) bytes.append(block, static_cast<std::size_t>(count));
  }
}

bool writeWhole(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

class LinuxFiles final : public Files {
 public:
  std::optional<FileInfo> stat(const std::string& path) const override {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return std::nullopt;
    return infoOf(info);
  }

  std::optional<std::string> find(const RootedPath& wanted) const override {
    if (wanted.text().size() >= PATH_MAX) return std::nullopt;
    if (stat(wanted.text())) return wanted.text();
    std::string path(wanted.root());
    for (const std::string_view part : split(wanted.relative(), '/')) {
      if (path.back() != '/') path += '/';
      const std::size_t folder = path.size();
      path += part;
      if (stat(path)) continue;
      const auto name = names_.find(path.substr(0, folder), part);
      if (!name) return std::nullopt;
      path.replace(folder, part.size(), *name);
    }
    if (!stat(path)) return std::nullopt;
    return path;
  }

  bool leadsBelow(const std::string& path, const std::string& root) const override {
    const auto inner = realPath(path);
    const auto outer = realPath(root);
    return inner && outer && (*inner + '/').starts_with(*outer == "/" ? "/" : *outer + '/');
  }

  std::shared_ptr<const OpenFile> open(const std::string& path) const override {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) return nullptr;
    struct stat info {};
    if (::fstat(descriptor, &info) != 0 || !S_ISREG(info.st_mode)) {
      ::close(descriptor);
      return nullptr;
    }
    return std::make_shared<LinuxFile>(descriptor, *infoOf(info));
  }

  std::optional<std::string> readAll(const std::string& path) const override {
    const auto file = open(path);
    if (!file) return std::nullopt;
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(file->info().size));
    if (!readRest(static_cast<const LinuxFile&>(*file).descriptor(), bytes)) return std::nullopt;
    return bytes;
  }

  bool writeAll(const std::string& path, std::string_view bytes) const override {
    std::string temporary = path + ".XXXXXX";
    const int descriptor = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0) return false;
    ::fchmod(descriptor, 0644);
    const bool written = writeWhole(descriptor, bytes);
    const bool closed = ::close(descriptor) == 0;
    if (written && closed && ::rename(temporary.c_str(), path.c_str()) == 0) return true;
    ::unlink(temporary.c_str());
    return false;
  }

  bool append(const std::string& path, std::string_view bytes) const override {
    const int descriptor =
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0644);
    if (descriptor < 0) return false;
    const bool written = writeWhole(descriptor, bytes);
    return ::close(descriptor) == 0 && written;
  }

  bool remove(const std::string& path) const override { return ::unlink(path.c_str()) == 0; }

  bool removeFolder(const std::string& path) const override { return ::rmdir(path.c_str()) == 0; }

  bool rename(const std::string& from, const std::string& to) const override {
    return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
  }

  std::optional<FileMarks> marks(const std::string& path) const override {
    struct statx info {};
    constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME;
    if (::statx(AT_FDCWD, path.c_str(), 0, kWanted, &info) != 0) return std::nullopt;
    const bool birthIsKnown = (info.stx_mask & STATX_BTIME) != 0;
    return FileMarks{pointOf(birthIsKnown ? info.stx_btime : info.stx_ctime),
                     pointOf(info.stx_atime), (info.stx_mode & kWriters) == 0,
                     paths::fileNameOf(path).starts_with('.')};
  }

  bool setReadOnly(const std::string& path, bool readOnly) const override {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return false;
    const mode_t mode = readOnly ? info.st_mode & ~kWriters : info.st_mode | S_IWUSR;
    return ::chmod(path.c_str(), mode & 07777) == 0;
  }

  std::optional<VolumeRoom> room(const std::string& path) const override {
    struct statvfs info {};
    if (::statvfs(path.c_str(), &info) != 0) return std::nullopt;
    const std::uint64_t block = info.f_frsize;
    return VolumeRoom{info.f_blocks * block, info.f_bfree * block, info.f_bavail * block};
  }

  bool makeFolder(const std::string& path) const override {
    return ::mkdir(path.c_str(), 0755) == 0;
  }

  std::vector<std::string> list(const std::string& folder) const override {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), ::closedir);
    if (!open) return names;
    while (const dirent* entry = ::readdir(open.get())) {
      const std::string_view name = entry->d_name;
      if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
  }

 private:
  mutable NameIndex names_;
};

}  // namespace

LinuxFile::~LinuxFile() {
  ::close(descriptor_);
}

std::size_t LinuxFile::read(std::uint64_t offset, char* out, std::size_t length) const {
  std::size_t done = 0;
  while (done < length) {
    const ssize_t count =
        ::pread(descriptor_, out + done, length - done, static_cast<off_t>(offset + done));
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

std::unique_ptr<Files> makeFiles() {
  return std::make_unique<LinuxFiles>();
}

}  // namespace quorvane
