#pragma once

#include <memory>
#include <string>

#include "components/uploads/uploaded_form.h"
#include "vbscript/values/object.h"

namespace quorvane::uploads {

/// A file that was sent, as scripts see it under the names that each upload object has for the same
/// things; they differ in the name that counts as the whole file's.
class FileObject final : public vbs::NativeObject<FileObject> {
 public:
  FileObject(std::shared_ptr<const UploadedFile> file, const Services& services)
      : services_(services), file_(std::move(file)) {}
  std::string_view typeName() const override { return "UploadedFile"; }
  static std::span<const vbs::Member<FileObject>> members();

  const UploadedFile& file() const { return *file_; }
  /// Saves it and keeps in mind where.
  void saveAs(const std::string& path);
  const std::string& path() const { return path_; }

 private:
  using Args = vbs::Args;
  using Value = vbs::Value;
  static Value text(std::string_view bytes) { return Value(bytes); }

  Value field(Args) { return text(file_->field()); }
  Value fileName(Args);
  Value extension(Args) { return text(file_->extension()); }
  Value dottedExtension(Args);
  Value clientPath(Args) { return text(file_->clientPath()); }
  Value clientName(Args) { return text(file_->name()); }
  Value contentType(Args) { return text(file_->contentType()); }
  Value size(Args);
  Value savedPath(Args) { return text(path_); }
  Value savedFolder(Args);
  Value binary(Args);
  Value contentText(Args);
  Value isEmpty(Args) { return Value::boolean(file_->size() == 0); }
  Value isMissing(Args) { return Value::boolean(false); }
  Value save(Args args);
  Value move(Args args);
  Value remove(Args);

  const Services& services_;
  std::shared_ptr<const UploadedFile> file_;
  std::string path_;  ///< where it was saved; empty: nowhere yet
};

}  // namespace quorvane::uploads
