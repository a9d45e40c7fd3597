#include "components/file_system/file_entries.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <vector>

#include "components/arguments.h"
#include "components/file_system/drives.h"
#include "components/file_system/file_moves.h"
#include "components/file_system/path_text.h"
#include "components/file_system/text_files.h"
#include "components/script_files.h"
#include "platform/clock.h"
#include "platform/fold_case.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/time_check.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::file_entries {

using vbs::Args;
using vbs::CallKind;
using vbs::ErrorCode;
using vbs::Value;

namespace {

enum Attributes : std::int32_t { kReadOnly = 1, kHidden = 2, kDirectory = 16, kArchive = 32 };

struct TypeText {
  std::string_view extension;
  std::string_view text;
};

constexpr std::array kTypeTexts{
    TypeText{"bmp", "Bitmap image"},
    TypeText{"css", "Cascading Style Sheet Document"},
    TypeText{"csv", "CSV File"},
    TypeText{"gif", "GIF image"},
    TypeText{"htm", "HTML Document"},
    TypeText{"html", "HTML Document"},
    TypeText{"ini", "Configuration settings"},
    TypeText{"jpeg", "JPEG image"},
    TypeText{"jpg", "JPEG image"},
    TypeText{"js", "JavaScript File"},
    TypeText{"log", "Text Document"},
    TypeText{"png", "PNG image"},
    TypeText{"txt", "Text Document"},
    TypeText{"vbs", "VBScript Script File"},
    TypeText{"xml", "XML Document"},
    TypeText{"zip", "Compressed (zipped) Folder"},
};

std::string typeText(std::string_view name) {
  const std::string extension = lowerCase(path_text::extensionOf(name));
  for (const TypeText& type : kTypeTexts) {
    if (type.extension == extension) return std::string(type.text);
  }
  return extension.empty() ? "File" : upperCase(extension) + " File";
}

Value text(const std::string& bytes) {
  return Value(std::string_view(bytes));
}

/// What files and folders have in common.
class Entry {
 protected:
  Entry(const Services& services, std::string path) : services_(services), path_(std::move(path)) {}

  const Files& files() const { return services_.files; }
  ScriptFiles scripts() const { return ScriptFiles(services_); }
  const Services& services() const { return services_; }
  const std::string& path() const { return path_; }

  FileInfo info(ErrorCode whenMissing) const {
    const auto info = files().stat(path_);
    if (!info) vbs::throwError(whenMissing);
    return *info;
  }
  FileMarks marks(ErrorCode whenMissing) const {
    const auto marks = files().marks(path_);
    if (!marks) vbs::throwError(whenMissing);
    return *marks;
  }
  Value date(TimePoint time) const {
    const CalendarTime local = services_.clock.local(time);
    return Value::date(vbs::combineDate(vbs::dayNumber(local.year, local.month, local.day),
                                        local.hour * 3600 + local.minute * 60 + local.second));
  }
  Value name() const { return Value(path_text::nameOf(path_)); }
  Value parent() const {
    const std::string_view above = path_text::parentOf(path_);
    return above.empty() ? Value::nothing() : folder(services_, std::string(above));
  }
  Value driveOfPath() const { return drives::drive(services_, drives::nameOf(path_)); }

  Value attributes(std::int32_t kind, ErrorCode whenMissing) const {
    const FileMarks found = marks(whenMissing);
    return Value::longInt(kind | (found.readOnly ? kReadOnly : 0) | (found.hidden ? kHidden : 0));
  }
  /// Of the marks only this one can be set; the others are the system's.
  void putAttributes(Args args) {
    const bool readOnly = (vbs::toLong(args[0]) & kReadOnly) != 0;
    if (!files().setReadOnly(path_, readOnly)) vbs::throwError(ErrorCode::PermissionDenied);
  }

  void putName(Args args) {
    const std::string name = vbs::toString(args[0]).narrow();
    if (name.empty() || name.find_first_of("/\\:*?") != name.npos) {
      vbs::throwError(ErrorCode::BadFileName);
    }
    const std::string target = paths::join(path_text::parentOf(path_), name);
    if (target != path_ && files().stat(target) && foldCase(target) != foldCase(path_)) {
      vbs::throwError(ErrorCode::FileExists);
    }
    if (target != path_ && !files().rename(path_, target)) {
      vbs::throwError(ErrorCode::PermissionDenied);
    }
    path_ = target;
  }
  /// After a move: where the entry is now.
  void follow(const std::string& target) {
    std::string place = scripts().fullPath(target);
    if (paths::isSeparator(target.back())) place = paths::join(place, path_text::nameOf(path_));
    path_ = std::move(place);
  }

 private:
  const Services& services_;
  std::string path_;
};

class File final : public vbs::NativeObject<File>, private Entry {
 public:
  File(const Services& services, std::string path) : Entry(services, std::move(path)) {}
  std::string_view typeName() const override { return "File"; }
  static std::span<const vbs::Member<File>> members();

 private:
  static constexpr ErrorCode kMissing = ErrorCode::FileNotFound;

  Value getPath(Args) { return text(path()); }
  Value getName(Args) { return Entry::name(); }
  void putName(Args args, CallKind) { Entry::putName(args); }
  Value size(Args) { return file_entries::size(info(kMissing).size); }
  Value type(Args) { return text(typeText(path())); }
  Value created(Args) { return date(marks(kMissing).created); }
  Value accessed(Args) { return date(marks(kMissing).accessed); }
  Value modified(Args) { return date(info(kMissing).modified); }
  Value parentFolder(Args) { return parent(); }
  Value drive(Args) { return driveOfPath(); }
  Value getAttributes(Args) { return attributes(kArchive, kMissing); }
  void putAttributes(Args args, CallKind) { Entry::putAttributes(args); }

  Value copy(Args args) {
    file_moves::copyFiles(scripts(), path(), arguments::text(args, 0),
                          arguments::flag(args, 1, true));
    return {};
  }
  Value move(Args args) {
    const std::string target = arguments::text(args, 0);
    file_moves::moveFiles(scripts(), path(), target);
    follow(target);
    return {};
  }
  Value remove(Args args) {
    file_moves::deleteFiles(scripts(), path(), arguments::flag(args, 0, false));
    return {};
  }
  Value openAsTextStream(Args args) {
    return text_files::open(files(), path(), arguments::number(args, 0, text_files::kForReading),
                            false, arguments::number(args, 1, text_files::kAnsi));
  }
};

std::span<const vbs::Member<File>> File::members() {
  using Self = File;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"path", 0, 0, &Self::getPath, nullptr, true},
      {"name", 0, 0, &Self::getName, &Self::putName},
      {"size", 0, 0, &Self::size},
      {"type", 0, 0, &Self::type},
      {"datecreated", 0, 0, &Self::created},
      {"datelastaccessed", 0, 0, &Self::accessed},
      {"datelastmodified", 0, 0, &Self::modified},
      {"attributes", 0, 0, &Self::getAttributes, &Self::putAttributes},
      {"parentfolder", 0, 0, &Self::parentFolder},
      {"drive", 0, 0, &Self::drive},
      {"shortname", 0, 0, &Self::getName},
      {"shortpath", 0, 0, &Self::getPath},
      {"copy", 1, 2, &Self::copy},
      {"move", 1, 1, &Self::move},
      {"delete", 0, 1, &Self::remove},
      {"openastextstream", 0, 2, &Self::openAsTextStream},
  };
  return kMembers;
}

enum class Kind { Files, Folders };

/// The names of one kind in a folder, in the order of the alphabet.
std::vector<std::string> namesIn(const Files& files, const std::string& folder, Kind kind) {
  std::vector<std::pair<std::string, std::string>> sorted;  // by the name without letter case
  for (std::string& name : files.list(folder)) {
    vbs::checkTime();
    const auto info = files.stat(paths::join(folder, name));
    if (!info || info->isFolder != (kind == Kind::Folders)) continue;
    sorted.emplace_back(foldCase(name), std::move(name));
  }
  std::sort(sorted.begin(), sorted.end());
  std::vector<std::string> names;
  names.reserve(sorted.size());
  for (auto& [key, name] : sorted) names.push_back(std::move(name));
  return names;
}

/// Folder.Files and Folder.SubFolders.
template <Kind kind>
class Entries final : public vbs::NativeObject<Entries<kind>>, private Entry {
  using Self = Entries<kind>;

 public:
  Entries(const Services& services, std::string path) : Entry(services, std::move(path)) {}
  std::string_view typeName() const override { return kind == Kind::Files ? "Files" : "Folders"; }

  static std::span<const vbs::Member<Self>> members() {
    static constexpr vbs::Member<Self> kMembers[] = {
        {"item", 1, 1, &Self::item, nullptr, true},
        {"count", 0, 0, &Self::count},
        {"add", 1, 1, &Self::add},
    };
    return std::span(kMembers).first(kind == Kind::Files ? 2 : 3);
  }

  std::unique_ptr<vbs::Enumerator> enumerate() override {
    std::vector<Value> list;
    for (const std::string& name : names()) list.push_back(entry(paths::join(path(), name)));
    return std::make_unique<vbs::ValueWalk>(std::move(list));
  }

 private:
  std::vector<std::string> names() const { return namesIn(files(), path(), kind); }
  Value entry(std::string path) const {
    return kind == Kind::Files ? file(services(), std::move(path))
                               : folder(services(), std::move(path));
  }

  Value count(Args) { return Value::longInt(static_cast<std::int32_t>(names().size())); }

  /// By name only; positions are none of these collections' keys.
  Value item(Args args) {
    if (!args[0].deref().isString()) vbs::throwError(ErrorCode::InvalidCall);
    const std::string name = vbs::toString(args[0]).narrow();
    const std::string wanted = scripts().fullPath(paths::join(path(), name));
    const auto info = files().stat(wanted);
    if (!info || info->isFolder != (kind == Kind::Folders)) {
      vbs::throwError(kind == Kind::Files ? ErrorCode::FileNotFound : ErrorCode::PathNotFound);
    }
    return entry(wanted);
  }

  Value add(Args args) {
    const std::string name = vbs::toString(args[0]).narrow();
    const std::string wanted = scripts().allowedPath(paths::join(path(), name));
    if (files().stat(wanted)) vbs::throwError(ErrorCode::FileExists);
    if (!files().makeFolder(wanted)) vbs::throwError(ErrorCode::PathNotFound);
    return folder(services(), wanted);
  }
};

/// The bytes of all files below a folder. Links may lead round: each folder counts once.
std::uint64_t sizeBelow(const Files& files, const std::string& folder,
                        std::set<std::uint64_t>& counted) {
  std::uint64_t sum = 0;
  for (const std::string& name : files.list(folder)) {
    vbs::checkTime();
    const std::string path = paths::join(folder, name);
    const auto info = files.stat(path);
    if (!info) continue;
    if (!info->isFolder) {
      sum += info->size;
    } else if (counted.insert(info->identity).second) {
      sum += sizeBelow(files, path, counted);
    }
  }
  return sum;
}

class Folder final : public vbs::NativeObject<Folder>, private Entry {
 public:
  Folder(const Services& services, std::string path) : Entry(services, std::move(path)) {}
  std::string_view typeName() const override { return "Folder"; }
  static std::span<const vbs::Member<Folder>> members();

 private:
  static constexpr ErrorCode kMissing = ErrorCode::PathNotFound;

  Value getPath(Args) { return text(path()); }
  Value getName(Args) { return Entry::name(); }
  void putName(Args args, CallKind) { Entry::putName(args); }
  Value size(Args) {
    std::set<std::uint64_t> counted{info(kMissing).identity};
    return file_entries::size(sizeBelow(files(), path(), counted));
  }
  Value type(Args) { return Value("File folder"); }
  Value created(Args) { return date(marks(kMissing).created); }
  Value accessed(Args) { return date(marks(kMissing).accessed); }
  Value modified(Args) { return date(info(kMissing).modified); }
  Value parentFolder(Args) { return parent(); }
  Value drive(Args) { return driveOfPath(); }
  Value getAttributes(Args) { return attributes(kDirectory, kMissing); }
  void putAttributes(Args args, CallKind) { Entry::putAttributes(args); }
  Value isRootFolder(Args) { return Value::boolean(path_text::nameOf(path()).empty()); }
  Value getFiles(Args) { return entriesOf<Kind::Files>(); }
  Value getSubFolders(Args) { return entriesOf<Kind::Folders>(); }

  template <Kind kind>
  Value entriesOf() {
    info(kMissing);
    return Value::adopt(new Entries<kind>(services(), path()));
  }

  Value copy(Args args) {
    file_moves::copyFolders(scripts(), path(), arguments::text(args, 0),
                            arguments::flag(args, 1, true));
    return {};
  }
  Value move(Args args) {
    const std::string target = arguments::text(args, 0);
    file_moves::moveFolders(scripts(), path(), target);
    follow(target);
    return {};
  }
  Value remove(Args args) {
    file_moves::deleteFolders(scripts(), path(), arguments::flag(args, 0, false));
    return {};
  }
  Value createTextFile(Args args) {
    const std::string place = scripts().allowedPath(paths::join(path(), arguments::text(args, 0)));
    return text_files::create(files(), place, arguments::flag(args, 1, true),
                              arguments::flag(args, 2, false));
  }
};

std::span<const vbs::Member<Folder>> Folder::members() {
  using Self = Folder;
  static constexpr vbs::Member<Self> kMembers[] = {
      {"path", 0, 0, &Self::getPath, nullptr, true},
      {"name", 0, 0, &Self::getName, &Self::putName},
      {"files", 0, 0, &Self::getFiles},
      {"subfolders", 0, 0, &Self::getSubFolders},
      {"size", 0, 0, &Self::size},
      {"type", 0, 0, &Self::type},
      {"datecreated", 0, 0, &Self::created},
      {"datelastaccessed", 0, 0, &Self::accessed},
      {"datelastmodified", 0, 0, &Self::modified},
      {"attributes", 0, 0, &Self::getAttributes, &Self::putAttributes},
      {"parentfolder", 0, 0, &Self::parentFolder},
      {"isrootfolder", 0, 0, &Self::isRootFolder},
      {"drive", 0, 0, &Self::drive},
      {"shortname", 0, 0, &Self::getName},
      {"shortpath", 0, 0, &Self::getPath},
      {"copy", 1, 2, &Self::copy},
      {"move", 1, 1, &Self::move},
      {"delete", 0, 1, &Self::remove},
      {"createtextfile", 1, 3, &Self::createTextFile},
  };
  return kMembers;
}

}  // namespace

Value file(const Services& services, std::string path) {
  return Value::adopt(new File(services, std::move(path)));
}

Value folder(const Services& services, std::string path) {
  return Value::adopt(new Folder(services, std::move(path)));
}

Value size(std::uint64_t bytes) {
  return bytes <= INT32_MAX ? Value::longInt(static_cast<std::int32_t>(bytes))
                            : Value::number(static_cast<double>(bytes));
}

}  // namespace quorvane::file_entries
