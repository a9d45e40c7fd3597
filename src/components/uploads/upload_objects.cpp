#include "components/uploads/upload_objects.h"

#include <algorithm>
#include <optional>

#include "components/arguments.h"
#include "components/component_error.h"
#include "components/uploads/file_object.h"
#include "components/uploads/named_items.h"
#include "components/uploads/uploaded_form.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using uploads::FileObject;
using uploads::NamedItems;
using uploads::UploadedForm;
using vbs::Args;
using vbs::CallKind;
using vbs::Member;
using vbs::Value;

namespace {

/// A field of a form: its text, and its name.
class FormItem final : public vbs::NativeObject<FormItem> {
 public:
  FormItem(std::string_view name, std::string_view value) : name_(name), value_(value) {}
  std::string_view typeName() const override { return "IFormItem"; }

  static std::span<const Member<FormItem>> members() {
    static constexpr Member<FormItem> kMembers[] = {
        {"value", 0, 0, &FormItem::value, nullptr, true},
        {"name", 0, 0, &FormItem::name},
    };
    return kMembers;
  }

 private:
  Value value(Args) { return value_; }
  Value name(Args) { return name_; }

  vbs::String name_;
  vbs::String value_;
};

/// What the three have in common: the form, read when it is first asked for.
class UploadBase : public vbs::Object {
 public:
  explicit UploadBase(const Services& services) : services_(services) {}

 protected:
  const UploadedForm& form() {
    if (!form_) form_.emplace(uploads::receiveForm(services_));
    return *form_;
  }

  const std::vector<vbs::Ref<FileObject>>& files() {
    if (files_.empty()) {
      for (const auto& file : form().files) {
        files_.push_back(vbs::make<FileObject>(file, services_));
      }
    }
    return files_;
  }

  Value collectionOrItem(std::vector<NamedItems::Item> items, NamedItems::Walk walk,
                         Value otherwise, Args args) {
    const Value all = Value::adopt(new NamedItems(std::move(items), walk, std::move(otherwise)));
    return args.empty() ? all : vbs::invokeResult(all, CallKind::Get, args);
  }

  std::vector<NamedItems::Item> fileItems() {
    std::vector<NamedItems::Item> items;
    for (const auto& file : files()) {
      items.emplace_back(file->file().field(), Value::object(file.get()));
    }
    return items;
  }

  /// Several fields of one name are one, their texts with commas between.
  std::vector<NamedItems::Item> textItems() {
    std::vector<NamedItems::Item> items;
    for (const uploads::FormField& field : form().fields) {
      const auto same = std::find_if(items.begin(), items.end(), [&](const NamedItems::Item& item) {
        return equalsNoCase(item.first, field.name);
      });
      if (same == items.end()) {
        items.emplace_back(field.name, Value(std::string_view(field.value)));
      } else {
        same->second =
            Value(std::string_view(vbs::toString(same->second).narrow() + ", " + field.value));
      }
    }
    return items;
  }

  Value getFiles(Args args) {
    return collectionOrItem(fileItems(), NamedItems::Walk::Values, Value::nothing(), args);
  }
  Value totalBytes(Args) { return Value::longInt(static_cast<std::int32_t>(form().totalBytes)); }
  Value getReplaces(Args) { return Value::boolean(replaces_); }
  void putReplaces(Args args, CallKind) { replaces_ = vbs::toBoolean(args[0]); }
  void ignore(Args, CallKind) {}
  Value nothing(Args) { return {}; }

  /// Into a folder under their own names; how many there were.
  std::int32_t saveAll(const std::string& folder) {
    for (const auto& file : files()) {
      file->saveAs(uploads::targetIn(folder, file->file(), replaces_, services_));
    }
    return static_cast<std::int32_t>(files().size());
  }

  const Services& services_;
  bool replaces_ = true;

 private:
  std::optional<UploadedForm> form_;
  std::vector<vbs::Ref<FileObject>> files_;
};

class Upload final : public vbs::NativeObject<Upload, UploadBase> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "IUploadManager"; }

  static std::span<const Member<Upload>> members() {
    using Self = Upload;
    static constexpr Member<Self> kMembers[] = {
        {"save", 0, 3, &Self::save},
        {"savevirtual", 1, 3, &Self::save},
        {"savetomemory", 0, 0, &Self::receive},
        {"setmaxsize", 1, 2, &Self::setMaxSize},
        {"overwritefiles", 0, 0, &Self::getReplaces, &Self::putReplaces},
        {"files", 0, 1, &Self::getFiles},
        {"form", 0, 1, &Self::getForm},
        {"totalbytes", 0, 0, &Self::totalBytes},
        {"ignorenopost", 0, 0, &Self::getIgnores, &Self::putIgnores},
        {"codepage", 0, 0, nullptr, &Self::ignore},
        {"createdirectory", 1, 2, &Self::createFolder},
        {"fileexists", 1, 1, &Self::fileExists},
        {"deletefile", 1, 1, &Self::deleteFile},
    };
    return kMembers;
  }

 private:
  static constexpr std::string_view kSource = "Persits.Upload.1";

  void require() {
    constexpr std::int32_t kNoForm = 5;
    constexpr std::int32_t kTooLarge = 8;
    if (!form().wasForm && !ignoresNoPost_) {
      throwComponentError(kNoForm, "Content-type is not multipart/form-data.", kSource);
    }
    for (const auto& file : form().files) {
      if (most_ > 0 && file->size() > most_) {
        throwComponentError(kTooLarge,
                            "File size exceeds the limit of " + std::to_string(most_) + " bytes.",
                            kSource);
      }
    }
  }
  Value save(Args args) {
    require();
    const std::string folder = arguments::text(args, 0);
    if (folder.empty()) return receive({});
    return Value::longInt(saveAll(uploads::targetPath(folder, services_)));
  }
  Value receive(Args) {
    require();
    return Value::longInt(static_cast<std::int32_t>(files().size()));
  }
  Value setMaxSize(Args args) {
    const std::int32_t most = vbs::toLong(args[0]);
    if (most < 0) vbs::throwError(vbs::ErrorCode::InvalidCall);
    most_ = static_cast<std::uint64_t>(most);
    return {};
  }
  Value getIgnores(Args) { return Value::boolean(ignoresNoPost_); }
  void putIgnores(Args args, CallKind) { ignoresNoPost_ = vbs::toBoolean(args[0]); }
  Value getForm(Args args) {
    std::vector<NamedItems::Item> items;
    for (const uploads::FormField& field : form().fields) {
      items.emplace_back(field.name, Value::adopt(new FormItem(field.name, field.value)));
    }
    return collectionOrItem(std::move(items), NamedItems::Walk::Values, Value(""), args);
  }
  Value createFolder(Args args) {
    const std::string path = uploads::targetPath(arguments::text(args, 0), services_);
    if (services_.files.stat(path)) {
      if (arguments::flag(args, 1, false)) return {};
      vbs::throwError(vbs::ErrorCode::FileExists);
    }
    if (!services_.files.makeFolder(path)) vbs::throwError(vbs::ErrorCode::PathNotFound);
    return {};
  }
  Value fileExists(Args args) {
    const auto info =
        services_.files.stat(uploads::targetPath(arguments::text(args, 0), services_));
    return Value::boolean(info && !info->isFolder);
  }
  Value deleteFile(Args args) {
    if (!services_.files.remove(uploads::targetPath(arguments::text(args, 0), services_))) {
      vbs::throwError(vbs::ErrorCode::FileNotFound);
    }
    return {};
  }

  std::uint64_t most_ = 0;  ///< bytes of a file; 0: no bound
  bool ignoresNoPost_ = false;
};

/// Works on all fields, and by itself on the form's first file.
class FileUp final : public vbs::NativeObject<FileUp, UploadBase> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "IFileUp"; }

  static std::span<const Member<FileUp>> members() {
    using Self = FileUp;
    static constexpr Member<Self> kMembers[] = {
        {"path", 0, 0, &Self::getPath, &Self::putPath},
        {"form", 0, 1, &Self::getForm},
        {"formex", 0, 1, &Self::getForm},
        {"save", 0, 0, &Self::save},
        {"saveas", 1, 1, &Self::saveAs},
        {"saveinvirtual", 1, 1, &Self::saveAs},
        {"overwritefiles", 0, 0, &Self::getReplaces, &Self::putReplaces},
        {"maxbytes", 0, 0, &Self::getMost, &Self::putMost},
        {"maxbytestocancel", 0, 0, &Self::getMost, &Self::putMost},
        {"totalbytes", 0, 0, &Self::totalBytes},
        {"userfilename", 0, 0, &Self::ofFirst},
        {"shortfilename", 0, 0, &Self::nameOfFirst},
        {"contenttype", 0, 0, &Self::typeOfFirst},
        {"servername", 0, 0, &Self::pathOfFirst},
        {"isempty", 0, 0, &Self::isEmpty},
        {"usememory", 0, 0, nullptr, &Self::ignore},
        {"codepage", 0, 0, nullptr, &Self::ignore},
        {"flush", 0, 0, &Self::nothing},
    };
    return kMembers;
  }

 private:
  FileObject* first() { return files().empty() ? nullptr : files().front().get(); }
  FileObject& required() {
    if (!first()) vbs::throwError(vbs::ErrorCode::FileNotFound);
    return *first();
  }
  void checkSizes() {
    for (const auto& file : form().files) {
      if (most_ >= 0 && file->size() > static_cast<std::uint64_t>(most_)) {
        constexpr std::int32_t kTooLarge = -2147220991;
        throwComponentError(kTooLarge, "The file is larger than MaxBytes allows.",
                            "SoftArtisans.FileUp.1");
      }
    }
  }

  Value getPath(Args) { return Value(std::string_view(folder_)); }
  void putPath(Args args, CallKind) {
    folder_ = uploads::targetPath(arguments::text(args, 0), services_);
  }
  Value getForm(Args args) {
    std::vector<NamedItems::Item> items = textItems();
    for (NamedItems::Item& file : fileItems()) items.push_back(std::move(file));
    return collectionOrItem(std::move(items), NamedItems::Walk::Names, Value(""), args);
  }
  Value save(Args) {
    checkSizes();
    if (folder_.empty()) vbs::throwError(vbs::ErrorCode::PathNotFound);
    saveAll(folder_);
    return {};
  }
  /// A name alone is one in the folder of `Path`.
  Value saveAs(Args args) {
    checkSizes();
    const std::string name = arguments::text(args, 0);
    const bool isName = name.find_first_of("/\\") == name.npos && !folder_.empty();
    const std::string path = isName ? uploads::targetPath(folder_ + '/' + name, services_)
                                    : uploads::targetPath(name, services_);
    if (!replaces_ && services_.files.stat(path)) vbs::throwError(vbs::ErrorCode::FileExists);
    required().saveAs(path);
    return {};
  }
  Value getMost(Args) { return Value::longInt(most_); }
  void putMost(Args args, CallKind) { most_ = vbs::toLong(args[0]); }

  static Value text(std::string_view bytes) { return Value(bytes); }
  Value ofFirst(Args) { return text(first() ? first()->file().clientPath() : ""); }
  Value nameOfFirst(Args) { return text(first() ? first()->file().name() : ""); }
  Value typeOfFirst(Args) { return text(first() ? first()->file().contentType() : ""); }
  Value pathOfFirst(Args) { return text(first() ? first()->path() : ""); }
  Value isEmpty(Args) { return Value::boolean(!first() || first()->file().size() == 0); }

  std::string folder_;
  std::int32_t most_ = -1;  ///< bytes of a file; negative: no bound
};

class SmartUpload final : public vbs::NativeObject<SmartUpload, UploadBase> {
 public:
  using NativeObject::NativeObject;
  std::string_view typeName() const override { return "ISmartUpload"; }

  static std::span<const Member<SmartUpload>> members() {
    using Self = SmartUpload;
    static constexpr Member<Self> kMembers[] = {
        {"upload", 0, 0, &Self::upload},
        {"save", 1, 2, &Self::save},
        {"files", 0, 1, &Self::getFiles},
        {"form", 0, 1, &Self::getForm},
        {"allowedfileslist", 0, 0, &Self::getAllowed, &Self::putAllowed},
        {"deniedfileslist", 0, 0, &Self::getDenied, &Self::putDenied},
        {"maxfilesize", 0, 0, &Self::getMost, &Self::putMost},
        {"totalmaxfilesize", 0, 0, &Self::getTotal, &Self::putTotal},
        {"totalbytes", 0, 0, &Self::totalBytes},
    };
    return kMembers;
  }

 private:
  [[noreturn]] static void fail(std::int32_t number, std::string_view text) {
    constexpr std::int32_t kObjectError = INT32_MIN + 0x40000;
    throwComponentError(kObjectError + number, text, "aspSmartUpload.SmartUpload");
  }

  static bool lists(std::string_view list, const std::string& extension) {
    for (const std::string_view item : split(list, ',')) {
      if (equalsNoCase(trimBlanks(item), extension)) return true;
    }
    return false;
  }

  Value upload(Args) {
    std::uint64_t total = 0;
    for (const auto& file : form().files) {
      const std::string extension = file->extension();
      if (!allowed_.empty() && !lists(allowed_, extension)) {
        fail(1010, "The extension of the file is not allowed to be uploaded.");
      }
      if (!denied_.empty() && lists(denied_, extension)) {
        fail(1015, "The extension of the file is not allowed to be uploaded.");
      }
      if (most_ > 0 && file->size() > static_cast<std::uint64_t>(most_)) {
        fail(1105, "Size exceeded for this file: " + file->name());
      }
      total += file->size();
      if (total_ > 0 && total > static_cast<std::uint64_t>(total_)) {
        fail(1110, "Total file size exceeded.");
      }
    }
    isChecked_ = true;
    return {};
  }
  Value save(Args args) {
    if (!isChecked_) upload({});
    return Value::longInt(saveAll(uploads::targetPath(arguments::text(args, 0), services_)));
  }
  Value getForm(Args args) {
    return collectionOrItem(textItems(), NamedItems::Walk::Names, Value(""), args);
  }

  Value getAllowed(Args) { return Value(std::string_view(allowed_)); }
  void putAllowed(Args args, CallKind) { allowed_ = arguments::text(args, 0); }
  Value getDenied(Args) { return Value(std::string_view(denied_)); }
  void putDenied(Args args, CallKind) { denied_ = arguments::text(args, 0); }
  Value getMost(Args) { return Value::longInt(most_); }
  void putMost(Args args, CallKind) { most_ = vbs::toLong(args[0]); }
  Value getTotal(Args) { return Value::longInt(total_); }
  void putTotal(Args args, CallKind) { total_ = vbs::toLong(args[0]); }

  std::string allowed_;
  std::string denied_;
  std::int32_t most_ = 0;
  std::int32_t total_ = 0;
  bool isChecked_ = false;
};

}  // namespace

const Component kUpload{"persits.upload persits.uploadmanager",
                        [](const Services& services) { return Value::adopt(new Upload(services)); },
                        /*isOurs=*/true};
const Component kFileUp{"softartisans.fileup",
                        [](const Services& services) { return Value::adopt(new FileUp(services)); },
                        /*isOurs=*/true};
const Component kSmartUpload{
    "aspsmartupload.smartupload",
    [](const Services& services) { return Value::adopt(new SmartUpload(services)); },
    /*isOurs=*/true};

}  // namespace quorvane
