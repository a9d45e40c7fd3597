#include "platform/instance_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/system.h"

namespace quorvane {

namespace {

/// A lock on a file beside the settings; the kernel lets go of it with the process.
class FileLock final : public InstanceLock {
 public:
  FileLock(std::string folder, std::string name)
      : folder_(std::move(folder)), name_(std::move(name)) {}
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  bool acquire() override {
    if (descriptor_ >= 0) return true;
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    const std::string path = folder_ + '/' + name_;
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (descriptor < 0) return true;
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      ::close(descriptor);
      return false;
    }
    descriptor_ = descriptor;
    return true;
  }

 private:
  std::string folder_;
  std::string name_;
  int descriptor_ = -1;
};

}  // namespace

std::unique_ptr<InstanceLock> makeInstanceLock(const std::string& root, std::int32_t number) {
  const std::string own = number == 0 ? "" : '-' + std::to_string(number);
  return std::make_unique<FileLock>(root, "instance" + own + ".lock");
}

}  // namespace quorvane
