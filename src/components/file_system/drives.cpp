#include "components/file_system/drives.h"

#include <vector>

#include "components/file_system/file_entries.h"
#include "components/file_system/path_text.h"
#include "platform/services.h"
#include "support/files.h"
#include "support/paths.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/value_walk.h"

namespace quorvane::drives {

using vbs::Args;
using vbs::ErrorCode;
using vbs::Value;

namespace {

constexpr bool kHasDrives = paths::kSeparator == '\\';
constexpr char kOnlyLetter = 'C';

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string rootOf(char letter) {
  return kHasDrives ? std::string{letter, ':', '\\'} : "/";
}

/// The drive's letter in upper case, or NUL.
char letterOf(std::string_view name) {
  if (name.size() == 1 && isLetter(name[0])) return upper(name[0]);
  const std::string drive = nameOf(name);
  return drive.empty() || !isLetter(drive[0]) ? '\0' : upper(drive[0]);
}

bool isThere(const Services& services, char letter) {
  return (kHasDrives || letter == kOnlyLetter) && services.files.stat(rootOf(letter));
}

class Drive final : public vbs::NativeObject<Drive> {
 public:
  Drive(const Services& services, char letter) : services_(services), letter_(letter) {}
  std::string_view typeName() const override { return "Drive"; }

  static std::span<const vbs::Member<Drive>> members() {
    using Self = Drive;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"path", 0, 0, &Self::path, nullptr, true}, {"driveletter", 0, 0, &Self::driveLetter},
        {"drivetype", 0, 0, &Self::driveType},      {"availablespace", 0, 0, &Self::availableSpace},
        {"freespace", 0, 0, &Self::freeSpace},      {"totalsize", 0, 0, &Self::totalSize},
        {"filesystem", 0, 0, &Self::noText},        {"isready", 0, 0, &Self::isReady},
        {"rootfolder", 0, 0, &Self::rootFolder},    {"serialnumber", 0, 0, &Self::serialNumber},
        {"sharename", 0, 0, &Self::noText},         {"volumename", 0, 0, &Self::noText},
    };
    return kMembers;
  }

 private:
  VolumeRoom room() const {
    const auto room = services_.files.room(rootOf(letter_));
    if (!room) vbs::throwError(ErrorCode::DiskNotReady);
    return *room;
  }

  Value path(Args) { return Value(std::string{letter_, ':'}.c_str()); }
  Value driveLetter(Args) { return Value(std::string_view(&letter_, 1)); }
  Value driveType(Args) {
    constexpr std::int32_t kFixed = 2;
    return Value::longInt(kFixed);
  }
  Value availableSpace(Args) { return file_entries::size(room().available); }
  Value freeSpace(Args) { return file_entries::size(room().free); }
  Value totalSize(Args) { return file_entries::size(room().size); }
  Value isReady(Args) { return Value::boolean(isThere(services_, letter_)); }
  Value rootFolder(Args) { return file_entries::folder(services_, rootOf(letter_)); }
  Value serialNumber(Args) { return Value::longInt(0); }
  Value noText(Args) { return Value(""); }

  const Services& services_;
  char letter_;
};

class Drives final : public vbs::NativeObject<Drives> {
 public:
  explicit Drives(const Services& services) : services_(services) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      if (isThere(services, letter)) letters_ += letter;
    }
  }
  std::string_view typeName() const override { return "Drives"; }

  static std::span<const vbs::Member<Drives>> members() {
    static constexpr vbs::Member<Drives> kMembers[] = {
        {"item", 1, 1, &Drives::item, nullptr, true},
        {"count", 0, 0, &Drives::count},
    };
    return kMembers;
  }

  std::unique_ptr<vbs::Enumerator> enumerate() override {
    std::vector<Value> list;
    for (const char letter : letters_) list.push_back(Value::adopt(new Drive(services_, letter)));
    return std::make_unique<vbs::ValueWalk>(std::move(list));
  }

 private:
  Value item(Args args) { return drive(services_, vbs::toString(args[0]).narrow()); }
  Value count(Args) { return Value::longInt(static_cast<std::int32_t>(letters_.size())); }

  const Services& services_;
  std::string letters_;
};

}  // namespace

std::string nameOf(std::string_view path) {
  const std::string_view drive = path_text::driveOf(path);
  if (!drive.empty()) return std::string(drive);
  const bool isAbsolute = !path.empty() && paths::isSeparator(path.front());
  return !kHasDrives && isAbsolute ? std::string{kOnlyLetter, ':'} : std::string();
}

bool exists(const Services& services, std::string_view name) {
  const char letter = letterOf(name);
  return letter != '\0' && isThere(services, letter);
}

Value drive(const Services& services, std::string_view name) {
  const char letter = letterOf(name);
  if (letter == '\0') vbs::throwError(ErrorCode::InvalidCall);
  if (!isThere(services, letter)) vbs::throwError(ErrorCode::DeviceUnavailable);
  return Value::adopt(new Drive(services, letter));
}

Value all(const Services& services) {
  return Value::adopt(new Drives(services));
}

}  // namespace quorvane::drives
