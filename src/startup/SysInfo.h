#pragma once

#include <optional>
#include <string>

#include "platform/process.h"

namespace quorvane {

/// The operating system as texts.
struct SystemRecord {
  std::string code;         ///< such as "WINXP"
  std::string name;         ///< such as "Windows XP"
  std::string platform;     ///< "Win32", "Win9xME" or "WinNT"
  std::string version;      ///< "major.minor.build"
  std::string servicePack;  ///< empty when there is none

  friend bool operator==(const SystemRecord&, const SystemRecord&) = default;
};

SystemRecord describeSystem(const HostVersion& version);

class SysInfo {
 public:
  /// The process outlives this object.
  explicit SysInfo(const Process& process) : process_(process) {}

  SystemRecord record() const { return describeSystem(process_.hostVersion()); }

  /// Whether the user has administrator rights; `otherwise` on systems without such rights.
  bool IsUserAdmin(bool otherwise) const { return isNT() ? process_.userIsAdmin() : otherwise; }

  /// The first answer stays.
  bool isNT() const;

 private:
  const Process& process_;
  mutable std::optional<bool> isNT_;
};

}  // namespace quorvane
