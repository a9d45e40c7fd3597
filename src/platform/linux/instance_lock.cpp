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
  explicit FileLock(std::string folder) : folder_(std::move(folder)) {}
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  bool acquire() override {
    if (descriptor_ >= 0) return true;
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    const std::string path = folder_ + "/instance.lock";
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
  int descriptor_ = -1;
};

}  // namespace

std::unique_ptr<InstanceLock> makeInstanceLock(const std::string& root) {
  return std::make_unique<FileLock>(root);
}

}  // namespace quorvane
