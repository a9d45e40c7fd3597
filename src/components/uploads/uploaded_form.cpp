#include "components/uploads/uploaded_form.h"

#include <algorithm>
#include <array>

#include "components/page_context.h"
#include "components/script_files.h"
#include "components/site/site_file.h"
#include "platform/process.h"
#include "platform/random.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/rooted_path.h"
#include "support/text.h"
#include "vbscript/values/error.h"

namespace quorvane::uploads {

namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;

/// Nothing that a client writes may lead out of a folder, or to what is no file on any system.
std::string plainName(const std::string& clientPath, const Services& services) {
  std::string name(paths::fileNameOf(clientPath));
  const auto checked = RootedPath::portable("/", name);
  if (checked && !name.empty() && checked->relative() == name) return name;
  return "upload-" + hexDigits(services.random.guid());
}

class FormReceiver final : public PartReceiver {
 public:
  FormReceiver(UploadedForm& form, const Services& services) : form_(form), services_(services) {}

  void beginPart(PartHead head) override {
    file_ = nullptr;
    field_ = {};
    charge_.change(0);
    if (head.isFile) {
      file_ = std::make_shared<UploadedFile>(std::move(head), services_);
    } else {
      field_.name = std::move(head.name);
    }
  }
  void partBytes(std::string_view bytes) override {
    if (file_) return file_->append(bytes);
    charge_.change(charge_.bytes() + bytes.size());
    field_.value += bytes;
  }
  void endPart() override {
    if (!file_) {
      form_.fields.push_back(std::move(field_));
    } else if (!file_->clientPath().empty()) {
      form_.files.push_back(std::move(file_));
    }
  }

 private:
  UploadedForm& form_;
  const Services& services_;
  std::shared_ptr<UploadedFile> file_;
  FormField field_;
  vbs::MemoryCharge charge_;
};

}  // namespace

UploadedFile::UploadedFile(PartHead head, const Services& services)
    : services_(services), head_(std::move(head)), name_(plainName(head_.fileName, services)) {}

UploadedFile::~UploadedFile() {
  if (!temporary_.empty()) services_.files.remove(temporary_);
}

std::string UploadedFile::extension() const {
  const std::string_view extension = paths::extensionOf(name_);
  return extension.empty() ? std::string() : lowerCase(extension.substr(1));
}

void UploadedFile::append(std::string_view bytes) {
  size_ += bytes.size();
  if (temporary_.empty() && held_.size() + bytes.size() <= kMostInMemory) {
    charge_.change(held_.size() + bytes.size());
    held_ += bytes;
    return;
  }
  if (temporary_.empty()) {
    temporary_ = paths::join(services_.process.systemFolder(SystemFolder::Temporary),
                             "quorvane-" + hexDigits(services_.random.guid()));
    const bool begun = services_.files.writeAll(temporary_, held_);
    std::string().swap(held_);
    charge_.change(0);
    if (!begun) vbs::throwError(vbs::ErrorCode::DiskFull);
  }
  vbs::countWork(bytes.size());
  if (!services_.files.append(temporary_, bytes)) vbs::throwError(vbs::ErrorCode::DiskFull);
}

std::string UploadedFile::content() const {
  if (temporary_.empty()) return held_;
  const vbs::MemoryCharge charge(size_);
  auto content = services_.files.readAll(temporary_);
  if (!content) vbs::throwError(vbs::ErrorCode::DeviceIo);
  return std::move(*content);
}

void UploadedFile::saveTo(const std::string& path) const {
  const Files& files = services_.files;
  const bool begun = files.writeAll(path, held_);
  if (!begun) vbs::throwError(vbs::ErrorCode::PermissionDenied);
  if (temporary_.empty()) return;
  const auto source = files.open(temporary_);
  if (!source) vbs::throwError(vbs::ErrorCode::DeviceIo);
  std::array<char, kBlock> block;
  for (std::uint64_t at = 0; at < size_;) {
    const std::size_t count = source->read(at, block.data(), block.size());
    vbs::countWork(count);
    if (count == 0 || !files.append(path, {block.data(), count})) {
      files.remove(path);
      vbs::throwError(vbs::ErrorCode::DiskFull);
    }
    at += count;
  }
}

UploadedForm receiveForm(const Services& services) {
  UploadedForm form;
  if (!services.page) return form;
  const std::string_view body = services.page->body();
  const std::string boundary = MultipartParser::boundaryOf(services.page->header("Content-Type"));
  form.totalBytes = body.size();
  if (boundary.empty()) return form;
  form.wasForm = true;
  FormReceiver receiver(form, services);
  MultipartParser parser(boundary, receiver);
  for (std::size_t at = 0; at < body.size(); at += kBlock) {
    vbs::countWork(kBlock);
    parser.take(body.substr(at, kBlock));
  }
  return form;
}

std::string targetIn(const std::string& folder, const UploadedFile& file, bool replaces,
                     const Services& services) {
  constexpr int kMostTries = 10'000;
  const std::string wanted = paths::join(folder, file.name());
  const std::string_view extension = paths::extensionOf(wanted);
  const std::string stem = wanted.substr(0, wanted.size() - extension.size());
  std::string path = wanted;
  for (int i = 1; !replaces && services.files.stat(path); ++i) {
    if (i > kMostTries) vbs::throwError(vbs::ErrorCode::FileExists);
    path = stem + '(' + std::to_string(i) + ')' + std::string(extension);
  }
  return path;
}

std::string targetPath(const std::string& named, const Services& services) {
  const ScriptFiles scripts(services);
  const std::string whole = scripts.fullPath(named);
  const bool isThere =
      services.files.stat(whole) || services.files.stat(std::string(paths::folderOf(whole)));
  return isThere && scripts.allows(whole) ? whole : sitePath(services, named);
}

}  // namespace quorvane::uploads
