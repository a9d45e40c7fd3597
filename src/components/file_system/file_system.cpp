#include "components/file_system/file_system.h"

#include "components/arguments.h"
#include "components/file_system/drives.h"
#include "components/file_system/file_entries.h"
#include "components/file_system/file_moves.h"
#include "components/file_system/path_text.h"
#include "components/file_system/text_files.h"
#include "components/script_files.h"
#include "platform/process.h"
#include "platform/random.h"
#include "platform/services.h"
#include "support/files.h"

namespace quorvane {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Value;

namespace {

class FileSystemObject final : public vbs::NativeObject<FileSystemObject> {
 public:
  explicit FileSystemObject(const Services& services) : services_(services), scripts_(services) {}
  std::string_view typeName() const override { return "FileSystemObject"; }
  static std::span<const vbs::Member<FileSystemObject>> members();

 private:
  /// What is there under a name, or nothing; nothing either where scripts may not look.
  std::optional<FileInfo> look(Args args) const {
    const std::string path = scripts_.fullPath(arguments::text(args, 0));
    return scripts_.allows(path) ? scripts_.files().stat(path) : std::nullopt;
  }
  static std::string first(Args args) { return arguments::text(args, 0); }
  static Value text(std::string_view bytes) { return Value(bytes); }

  // Texts of paths.
  Value buildPath(Args args) {
    return text(path_text::joined(first(args), arguments::text(args, 1)));
  }
  Value getBaseName(Args args) { return text(path_text::baseNameOf(first(args))); }
  Value getExtensionName(Args args) { return text(path_text::extensionOf(first(args))); }
  Value getFileName(Args args) { return text(path_text::nameOf(first(args))); }
  Value getParentFolderName(Args args) { return text(path_text::parentOf(first(args))); }
  Value getDriveName(Args args) { return text(drives::nameOf(first(args))); }
  Value getAbsolutePathName(Args args) { return text(scripts_.fullPath(first(args))); }
  Value getTempName(Args);
  Value getFileVersion(Args) { return text(""); }

  // What is there.
  Value fileExists(Args args) {
    const auto info = look(args);
    return Value::boolean(info && !info->isFolder);
  }
  Value folderExists(Args args) {
    const auto info = look(args);
    return Value::boolean(info && info->isFolder);
  }
  Value driveExists(Args args) { return Value::boolean(drives::exists(services_, first(args))); }
  Value getFile(Args args);
  Value getFolder(Args args);
  Value getDrive(Args args) { return drives::drive(services_, first(args)); }
  Value allDrives(Args) { return drives::all(services_); }
  Value getSpecialFolder(Args args);

  // What changes something.
  Value createFolder(Args args);
  Value createTextFile(Args args) {
    return text_files::create(scripts_.files(), scripts_.allowedPath(args[0]),
                              arguments::flag(args, 1, true), arguments::flag(args, 2, false));
  }
  Value openTextFile(Args args) {
    return text_files::open(scripts_.files(), scripts_.allowedPath(args[0]),
                            arguments::number(args, 1, text_files::kForReading),
                            arguments::flag(args, 2, false),
                            arguments::number(args, 3, text_files::kAnsi));
  }
  Value copyFile(Args args) {
    file_moves::copyFiles(scripts_, first(args), arguments::text(args, 1),
                          arguments::flag(args, 2, true));
    return {};
  }
  Value copyFolder(Args args) {
    file_moves::copyFolders(scripts_, first(args), arguments::text(args, 1),
                            arguments::flag(args, 2, true));
    return {};
  }
  Value moveFile(Args args) {
    file_moves::moveFiles(scripts_, first(args), arguments::text(args, 1));
    return {};
  }
  Value moveFolder(Args args) {
    file_moves::moveFolders(scripts_, first(args), arguments::text(args, 1));
    return {};
  }
  Value deleteFile(Args args) {
    file_moves::deleteFiles(scripts_, first(args), arguments::flag(args, 1, false));
    return {};
  }
  Value deleteFolder(Args args) {
    file_moves::deleteFolders(scripts_, first(args), arguments::flag(args, 1, false));
    return {};
  }

  const Services& services_;
  ScriptFiles scripts_;
};

std::span<const vbs::Member<FileSystemObject>> FileSystemObject::members() {
  using Self = FileSystemObject;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"fileexists", 1, 1, &Self::fileExists},
      {"folderexists", 1, 1, &Self::folderExists},
      {"driveexists", 1, 1, &Self::driveExists},
      {"opentextfile", 1, 4, &Self::openTextFile},
      {"createtextfile", 1, 3, &Self::createTextFile},
      {"getfile", 1, 1, &Self::getFile},
      {"getfolder", 1, 1, &Self::getFolder},
      {"getdrive", 1, 1, &Self::getDrive},
      {"drives", 0, 0, &Self::allDrives},
      {"getspecialfolder", 1, 1, &Self::getSpecialFolder},
      {"createfolder", 1, 1, &Self::createFolder},
      {"copyfile", 2, 3, &Self::copyFile},
      {"copyfolder", 2, 3, &Self::copyFolder},
      {"movefile", 2, 2, &Self::moveFile},
      {"movefolder", 2, 2, &Self::moveFolder},
      {"deletefile", 1, 2, &Self::deleteFile},
      {"deletefolder", 1, 2, &Self::deleteFolder},
      {"buildpath", 2, 2, &Self::buildPath},
      {"getabsolutepathname", 1, 1, &Self::getAbsolutePathName},
      {"getbasename", 1, 1, &Self::getBaseName},
      {"getdrivename", 1, 1, &Self::getDriveName},
      {"getextensionname", 1, 1, &Self::getExtensionName},
      {"getfilename", 1, 1, &Self::getFileName},
      {"getfileversion", 1, 1, &Self::getFileVersion},
      {"getparentfoldername", 1, 1, &Self::getParentFolderName},
      {"gettempname", 0, 0, &Self::getTempName},
  };
  return kMembers;
}

/// "rad", five hexadecimal digits, ".tmp".
Value FileSystemObject::getTempName(Args) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string name = "rad";
  for (int i = 0; i < 5; ++i) {
    name += kDigits[static_cast<std::size_t>(services_.random.fraction() * 16)];
  }
  return text(name + ".tmp");
}

Value FileSystemObject::getFile(Args args) {
  const std::string path = scripts_.allowedPath(args[0]);
  const auto info = scripts_.files().stat(path);
  if (!info || info->isFolder) vbs::throwError(ErrorCode::FileNotFound);
  return file_entries::file(services_, path);
}

Value FileSystemObject::getFolder(Args args) {
  const std::string path = scripts_.allowedPath(args[0]);
  const auto info = scripts_.files().stat(path);
  if (!info || !info->isFolder) vbs::throwError(ErrorCode::PathNotFound);
  return file_entries::folder(services_, path);
}

/// Windows 0, System 1, Temporary 2.
Value FileSystemObject::getSpecialFolder(Args args) {
  constexpr SystemFolder kFolders[] = {SystemFolder::System, SystemFolder::Libraries,
                                       SystemFolder::Temporary};
  const std::int32_t which = vbs::toLong(args[0]);
  if (which < 0 || which > 2) vbs::throwError(ErrorCode::InvalidCall);
  return file_entries::folder(services_, services_.process.systemFolder(kFolders[which]));
}

Value FileSystemObject::createFolder(Args args) {
  const std::string path = scripts_.allowedPath(args[0]);
  const Files& files = scripts_.files();
  if (files.stat(path)) vbs::throwError(ErrorCode::FileExists);
  const auto parent = files.stat(std::string(path_text::parentOf(path)));
  if (!parent || !parent->isFolder) vbs::throwError(ErrorCode::PathNotFound);
  if (!files.makeFolder(path)) vbs::throwError(ErrorCode::PermissionDenied);
  return file_entries::folder(services_, path);
}

}  // namespace

const Component kFileSystemObject{"scripting.filesystemobject", [](const Services& services) {
                                    return Value::adopt(new FileSystemObject(services));
                                  }};

}  // namespace quorvane
