#include "startup/SysInfo.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace quorvane {

namespace {

constexpr std::uint32_t kWin32s = 0;
constexpr std::uint32_t kWin9x = 1;
constexpr std::uint32_t kWinNt = 2;

constexpr std::uint32_t kHighest = std::numeric_limits<std::uint32_t>::max();

struct Range {
  std::uint32_t from = 0;
  std::uint32_t to = kHighest;
  bool holds(std::uint32_t number) const { return number >= from && number <= to; }
};
constexpr Range kAny{};
constexpr Range only(std::uint32_t number) {
  return {number, number};
}

/// One system; the first row that fits names it. Build texts with a letter never equal a build
/// number, so their rows are reached by no system that answers with a number.
struct Row {
  std::uint32_t platform;
  Range major;
  Range minor;
  std::array<std::string_view, 2> builds;  ///< empty: any
  std::string_view code;
  std::string_view name;

  bool fits(const HostVersion& version, std::string_view build) const {
    const bool anyBuild = builds[0].empty();
    return platform == version.platform && major.holds(version.major) &&
           minor.holds(version.minor) &&
           (anyBuild || std::find(builds.begin(), builds.end(), build) != builds.end());
  }
};

constexpr std::array kRows{
    Row{kWin32s, kAny, kAny, {}, "WIN32", "Windows 32"},
    Row{kWin9x, kAny, only(0), {"950A"}, "WIN95_OEM", "Windows 95 OEM"},
    Row{kWin9x, kAny, only(0), {"950B", "950C"}, "WIN95_OSR2", "Windows 95 OSR2"},
    Row{kWin9x, kAny, only(0), {}, "WIN95", "Windows 95"},
    Row{kWin9x, kAny, only(10), {"1961"}, "WIN98_BETA", "Windows 98 Beta"},
    Row{kWin9x, kAny, only(10), {"2222A"}, "WIN98_SE", "Windows 98 SE"},
    Row{kWin9x, kAny, only(10), {}, "WIN98", "Windows 98"},
    // "Millenium" is how programs that compare the name know it.
    Row{kWin9x, kAny, only(90), {}, "WINME", "Windows Millenium Edition"},
    Row{kWinNt, Range{0, 4}, kAny, {}, "WINNT", "Windows NT"},
    Row{kWinNt, only(5), only(0), {}, "WIN2000", "Windows 2000"},
    Row{kWinNt, only(5), only(1), {}, "WINXP", "Windows XP"},
    Row{kWinNt, only(5), only(2), {}, "WIN2003", "Windows 2003"},
    Row{kWinNt, only(6), kAny, {}, "WINVISTA", "Windows Vista"},
    Row{kWinNt, Range{7, kHighest}, kAny, {}, "???", "???"},
};

constexpr std::array<std::string_view, 3> kPlatforms{"Win32", "Win9xME", "WinNT"};

}  // namespace

SystemRecord describeSystem(const HostVersion& version) {
  const std::string build = std::to_string(version.build);
  SystemRecord record;
  const auto row = std::find_if(kRows.begin(), kRows.end(),
                                [&](const Row& r) { return r.fits(version, build); });
  if (row != kRows.end()) {
    record.code = row->code;
    record.name = row->name;
  }
  if (version.platform < kPlatforms.size()) record.platform = kPlatforms[version.platform];
  record.version =
      std::to_string(version.major) + "." + std::to_string(version.minor) + "." + build;
  record.servicePack = version.servicePack.substr(0, version.servicePack.find('\0'));
  return record;
}

bool SysInfo::isNT() const {
  if (!isNT_) isNT_ = record().platform == kPlatforms[kWinNt];
  return *isNT_;
}

}  // namespace quorvane
