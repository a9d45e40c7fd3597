#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "components/uploads/multipart_parser.h"
#include "platform/services.h"
#include "vbscript/values/memory_meter.h"

namespace quorvane::uploads {

/// A file that a client sent. Up to 1 MiB of it is held in memory, a longer one in a temporary file
/// that goes with this object.
class UploadedFile {
 public:
  static constexpr std::size_t kMostInMemory = std::size_t{1} << 20;

  UploadedFile(PartHead head, const Services& services);
  UploadedFile(const UploadedFile&) = delete;
  UploadedFile& operator=(const UploadedFile&) = delete;
  ~UploadedFile();

  const std::string& field() const { return head_.name; }
  const std::string& clientPath() const { return head_.fileName; }  ///< for showing only
  const std::string& contentType() const { return head_.contentType; }
  std::uint64_t size() const { return size_; }

  /// The last part of the client's path when it is a plain name, else a name made here.
  const std::string& name() const { return name_; }
  std::string extension() const;  ///< of the name, in lower case, without the dot

  void append(std::string_view bytes);

  /// All of it. Error 7 when that is beyond the script's memory.
  std::string content() const;

  /// Writes a copy. Error 70 when that can't be done.
  void saveTo(const std::string& path) const;

 private:
  const Services& services_;
  PartHead head_;
  std::string name_;
  std::uint64_t size_ = 0;
  std::string held_;
  vbs::MemoryCharge charge_;
  std::string temporary_;  ///< empty: held in memory
};

struct FormField {
  std::string name;
  std::string value;
};

/// What the running page was sent.
struct UploadedForm {
  std::vector<FormField> fields;
  std::vector<std::shared_ptr<UploadedFile>> files;  ///< without those that the user left out
  std::size_t totalBytes = 0;                        ///< of the whole body
  bool wasForm = false;                              ///< it was a form with files at all
};

/// Reads the body of the running page's request.
UploadedForm receiveForm(const Services& services);

/// A path in `folder` for the file: with `replaces` its own name, else one that is free.
std::string targetIn(const std::string& folder, const UploadedFile& file, bool replaces,
                     const Services& services);

/// The full path of a folder or file that the page names: as the system spells it, or else as
/// clients do. Error 70 where scripts may not write.
std::string targetPath(const std::string& named, const Services& services);

}  // namespace quorvane::uploads
