#pragma once

#include "support/files.h"

namespace quorvane {

/// A file by its descriptor.
class LinuxFile final : public OpenFile {
 public:
  LinuxFile(int descriptor, FileInfo info) : descriptor_(descriptor), info_(info) {}
  LinuxFile(const LinuxFile&) = delete;
  LinuxFile& operator=(const LinuxFile&) = delete;
  ~LinuxFile() override;

  const FileInfo& info() const override { return info_; }
  std::size_t read(std::uint64_t offset, char* out, std::size_t length) const override;
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
  FileInfo info_;
};

}  // namespace quorvane
