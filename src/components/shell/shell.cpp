#include "components/shell/shell.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "components/arguments.h"
#include "components/component_error.h"
#include "components/shell/command_words.h"
#include "components/shell/running_program.h"
#include "platform/clock.h"
#include "platform/process.h"
#include "platform/services.h"
#include "platform/settings_storage.h"
#include "support/paths.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"
#include "vbscript/values/serial_date.h"
#include "vbscript/values/value_walk.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::int32_t kNoSuchFile = -2147024894;

Value text(std::string_view bytes) {
  return Value(bytes);
}

/// The variables of this process, whatever part of the system's is asked for.
class Environment final : public vbs::NativeObject<Environment> {
 public:
  explicit Environment(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IWshEnvironment"; }

  static std::span<const vbs::Member<Environment>> members() {
    static constexpr vbs::Member<Environment> kMembers[] = {
        {"item", 1, 1, &Environment::item, nullptr, true},
        {"count", 0, 0, &Environment::count},
        {"length", 0, 0, &Environment::count},
    };
    return kMembers;
  }

  std::unique_ptr<vbs::Enumerator> enumerate() override {
    std::vector<Value> list;
    for (const std::string& variable : services_.process.environment()) {
      list.push_back(text(variable));
    }
    return std::make_unique<vbs::ValueWalk>(std::move(list));
  }

 private:
  Value item(Args args) { return text(shell::variable(arguments::text(args, 0), services_)); }
  Value count(Args) {
    return Value::longInt(static_cast<std::int32_t>(services_.process.environment().size()));
  }

  const Services& services_;
};

class SpecialFolders final : public vbs::NativeObject<SpecialFolders> {
 public:
  explicit SpecialFolders(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IWshCollection"; }

  static std::span<const vbs::Member<SpecialFolders>> members() {
    static constexpr vbs::Member<SpecialFolders> kMembers[] = {
        {"item", 1, 1, &SpecialFolders::item, nullptr, true},
        {"count", 0, 0, &SpecialFolders::count},
        {"length", 0, 0, &SpecialFolders::count},
    };
    return kMembers;
  }

  std::unique_ptr<vbs::Enumerator> enumerate() override {
    std::vector<Value> list;
    list.reserve(kFolders.size());
    for (const Row& row : kFolders) list.push_back(text(pathOf(row)));
    return std::make_unique<vbs::ValueWalk>(std::move(list));
  }

 private:
  struct Row {
    std::string_view name;
    std::string_view below;  ///< the user's own folder
  };
  static constexpr std::array kFolders{
      Row{"Desktop", "Desktop"},
      Row{"MyDocuments", "Documents"},
      Row{"AppData", ".config"},
      Row{"Fonts", ".local/share/fonts"},
  };

  std::string pathOf(const Row& row) const {
    return paths::join(shell::variable("HOME", services_), paths::native(row.below));
  }
  Value item(Args args) {
    const std::string name = arguments::text(args, 0);
    for (const Row& row : kFolders) {
      if (equalsNoCase(row.name, name)) return text(pathOf(row));
    }
    return text("");
  }
  Value count(Args) { return Value::longInt(static_cast<std::int32_t>(kFolders.size())); }

  const Services& services_;
};

struct RegistryName {
  RegistryRoot root;
  std::string key;
  std::string name;
};

std::optional<RegistryRoot> registryRoot(std::string_view name) {
  struct Row {
    std::string_view name;
    RegistryRoot root;
  };
  constexpr std::array kRoots{
      Row{"HKCU", RegistryRoot::CurrentUser},
      Row{"HKEY_CURRENT_USER", RegistryRoot::CurrentUser},
      Row{"HKLM", RegistryRoot::LocalMachine},
      Row{"HKEY_LOCAL_MACHINE", RegistryRoot::LocalMachine},
      Row{"HKCR", RegistryRoot::ClassesRoot},
      Row{"HKEY_CLASSES_ROOT", RegistryRoot::ClassesRoot},
      Row{"HKEY_USERS", RegistryRoot::Users},
  };
  for (const Row& row : kRoots) {
    if (equalsNoCase(row.name, name)) return row.root;
  }
  return std::nullopt;
}

/// "root\key\name"; a backslash at the end stands for the value that has no name.
RegistryName registryName(const std::string& path) {
  const std::size_t first = path.find('\\');
  const auto root = registryRoot(std::string_view(path).substr(0, first));
  if (!root || first == path.npos) {
    throwComponentError(kNoSuchFile, "Invalid root in registry key \"" + path + "\".",
                        "WshShell.RegRead");
  }
  const std::size_t last = path.rfind('\\');
  return {*root, last > first ? path.substr(first + 1, last - first - 1) : std::string(),
          path.substr(last + 1)};
}

class Shell final : public vbs::NativeObject<Shell> {
 public:
  explicit Shell(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IWshShell3"; }

  static std::span<const vbs::Member<Shell>> members() {
    using Self = Shell;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"run", 1, 3, &Self::run},
        {"exec", 1, 1, &Self::exec},
        {"environment", 0, 1, &Self::environment},
        {"expandenvironmentstrings", 1, 1, &Self::expand},
        {"specialfolders", 0, 1, &Self::specialFolders},
        {"currentdirectory", 0, 0, &Self::getCurrentDirectory, &Self::putCurrentDirectory},
        {"regread", 1, 1, &Self::regRead},
    };
    return kMembers;
  }

 private:
  Value run(Args args) {
    const bool waits = arguments::flag(args, 2, false);
    return shell::runProgram(arguments::text(args, 0), waits, services_);
  }
  Value exec(Args args) { return shell::runningProgram(arguments::text(args, 0), services_); }
  Value environment(Args) { return Value::adopt(new Environment(services_)); }
  Value expand(Args args) { return text(shell::expanded(arguments::text(args, 0), services_)); }
  Value specialFolders(Args args) {
    const Value folders = Value::adopt(new SpecialFolders(services_));
    return args.empty() ? folders : vbs::invokeResult(folders, CallKind::Get, args);
  }
  Value getCurrentDirectory(Args) { return text(services_.process.currentFolder()); }
  void putCurrentDirectory(Args args, CallKind) {
    if (services_.process.setCurrentFolder(paths::native(arguments::text(args, 0)))) return;
    throwComponentError(kNoSuchFile, "The system cannot find the file specified.",
                        "WshShell.CurrentDirectory");
  }
  Value regRead(Args args);
  std::int32_t minutesBehindUtc() const;

  const Services& services_;
};

double serial(const CalendarTime& time) {
  return vbs::combineDate(vbs::dayNumber(time.year, time.month, time.day),
                          time.hour * 3600 + time.minute * 60 + time.second);
}

std::int32_t Shell::minutesBehindUtc() const {
  constexpr double kMinutesOfDay = 24 * 60;
  const TimePoint now = services_.clock.now();
  const double days = serial(services_.clock.utc(now)) - serial(services_.clock.local(now));
  return static_cast<std::int32_t>(roundHalfEven(days * kMinutesOfDay));
}

/// The settings' store, and the one value of the system's that pages ask for: how far the local
/// time is from Coordinated Universal Time.
Value Shell::regRead(Args args) {
  const std::string path = arguments::text(args, 0);
  const RegistryName name = registryName(path);
  if (services_.settings) {
    const auto value = services_.settings->read(name.root, name.key, name.name);
    if (value && value->type != StoredType::Binary) return text(value->data);
  }
  if (name.root == RegistryRoot::LocalMachine && equalsNoCase(name.name, "ActiveTimeBias")) {
    return Value::longInt(minutesBehindUtc());
  }
  throwComponentError(kNoSuchFile, "Unable to open registry key \"" + path + "\" for reading.",
                      "WshShell.RegRead");
}

}  // namespace

const Component kShell{"wscript.shell",
                       [](const Services& services) { return Value::adopt(new Shell(services)); }};

}  // namespace quorvane
