#include "components/uploads/file_object.h"

#include "components/arguments.h"
#include "support/files.h"
#include "support/paths.h"
#include "vbscript/values/convert.h"

namespace quorvane::uploads {

using vbs::Args;
using vbs::Value;

std::span<const vbs::Member<FileObject>> FileObject::members() {
  using Self = FileObject;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"path", 0, 0, &Self::savedPath, nullptr, true},
      {"name", 0, 0, &Self::field},
      {"filename", 0, 0, &Self::fileName},
      {"ext", 0, 0, &Self::dottedExtension},
      {"fileext", 0, 0, &Self::extension},
      {"size", 0, 0, &Self::size},
      {"totalbytes", 0, 0, &Self::size},
      {"originalsize", 0, 0, &Self::size},
      {"contenttype", 0, 0, &Self::contentType},
      {"originalpath", 0, 0, &Self::clientPath},
      {"filepathname", 0, 0, &Self::clientPath},
      {"userfilename", 0, 0, &Self::clientPath},
      {"originalfilename", 0, 0, &Self::clientName},
      {"shortfilename", 0, 0, &Self::clientName},
      {"servername", 0, 0, &Self::savedPath},
      {"folder", 0, 0, &Self::savedFolder},
      {"extractfilename", 0, 0, &Self::fileName},
      {"binary", 0, 0, &Self::binary},
      {"binarydata", 0, 0, &Self::binary},
      {"contentstring", 0, 0, &Self::contentText},
      {"isempty", 0, 0, &Self::isEmpty},
      {"ismissing", 0, 0, &Self::isMissing},
      {"saveas", 1, 2, &Self::save},
      {"saveasvirtual", 1, 2, &Self::save},
      {"saveinvirtual", 1, 1, &Self::save},
      {"copy", 1, 2, &Self::save},
      {"copyvirtual", 1, 2, &Self::save},
      {"move", 1, 2, &Self::move},
      {"movevirtual", 1, 2, &Self::move},
      {"delete", 0, 0, &Self::remove},
  };
  return kMembers;
}

void FileObject::saveAs(const std::string& path) {
  file_->saveTo(path);
  path_ = path;
}

/// Of the saved file, which may have got another one.
Value FileObject::fileName(Args) {
  return text(path_.empty() ? std::string_view(file_->name()) : paths::fileNameOf(path_));
}

Value FileObject::dottedExtension(Args) {
  return text(paths::extensionOf(file_->name()));
}

Value FileObject::size(Args) {
  return file_->size() <= INT32_MAX ? Value::longInt(static_cast<std::int32_t>(file_->size()))
                                    : Value::number(static_cast<double>(file_->size()));
}

Value FileObject::savedFolder(Args) {
  return text(paths::folderOf(path_));
}

Value FileObject::binary(Args) {
  return Value::array(vbs::ArrayRep::fromBytes(file_->content()));
}

Value FileObject::contentText(Args) {
  return text(file_->content());
}

/// To a path, or under its own name into a folder that is there.
Value FileObject::save(Args args) {
  std::string path = targetPath(arguments::text(args, 0), services_);
  const auto info = services_.files.stat(path);
  if (info && info->isFolder) path = targetIn(path, *file_, true, services_);
  if (services_.files.stat(path) && !arguments::flag(args, 1, true)) {
    vbs::throwError(vbs::ErrorCode::FileExists);
  }
  saveAs(path);
  return {};
}

Value FileObject::move(Args args) {
  const std::string before = path_;
  save(args);
  if (!before.empty() && before != path_) services_.files.remove(before);
  return {};
}

Value FileObject::remove(Args) {
  if (!path_.empty()) services_.files.remove(path_);
  path_.clear();
  return {};
}

}  // namespace quorvane::uploads
