#pragma once

#include "platform/windows/handle.h"
#include "support/files.h"

namespace quorvane {

/// A file by its handle.
class HandleFile final : public OpenFile {
 public:
  HandleFile(SystemHandle handle, FileInfo info) : handle_(std::move(handle)), info_(info) {}

  const FileInfo& info() const override { return info_; }
  std::size_t read(std::uint64_t offset, char* out, std::size_t length) const override;
  HANDLE handle() const { return handle_.get(); }

 private:
  SystemHandle handle_;
  FileInfo info_;
};

}  // namespace quorvane
