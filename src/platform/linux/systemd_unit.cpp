#include "platform/linux/systemd_unit.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr std::string_view kSuffix = ".service";

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool canStandInUnit(std::string_view path) {
  return !path.empty() && path.front() == '/' && std::none_of(path.begin(), path.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
  });
}

/// One word of a unit file's list. The sign of percent begins a specifier there.
std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    if (c == '%') out += '%';
    out += c;
  }
  return out + '"';
}

bool isTemporary(std::string_view path) {
  return path.starts_with("/tmp/") || path.starts_with("/var/tmp/");
}

std::string folderOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

/// What the server can do without. It keeps writing in its own folder and in its settings, to
/// which pages may add; it owns no capability but opening a low port and reaching files of
/// whichever user they belong to. Netlink tells the addresses of this machine.
constexpr std::string_view kHardening = R"(NoNewPrivileges=yes
CapabilityBoundingSet=CAP_NET_BIND_SERVICE CAP_DAC_OVERRIDE
ProtectSystem=strict
ProtectHome=read-only
PrivateDevices=yes
ProtectHostname=yes
ProtectClock=yes
ProtectKernelTunables=yes
ProtectKernelModules=yes
ProtectKernelLogs=yes
ProtectControlGroups=yes
RestrictAddressFamilies=AF_INET AF_INET6 AF_UNIX AF_NETLINK
RestrictNamespaces=yes
RestrictRealtime=yes
RestrictSUIDSGID=yes
LockPersonality=yes
SystemCallArchitectures=native
SystemCallFilter=@system-service
SystemCallErrorNumber=EPERM
)";

}  // namespace

std::string unitNameOf(std::string_view service) {
  std::string unit;
  for (const char c : service) unit += c == ' ' ? '-' : lowered(c);
  return unit.append(kSuffix);
}

std::string serviceNameOf(std::string_view unit) {
  if (unit.ends_with(kSuffix)) unit.remove_suffix(kSuffix.size());
  std::string service(unit);
  std::replace(service.begin(), service.end(), '-', ' ');
  return service;
}

bool sameServiceName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowered(x) == lowered(y); });
}

std::optional<std::string> unitText(const ServiceUnit& unit) {
  if (!canStandInUnit(unit.program) || !canStandInUnit(unit.settingsRoot)) return std::nullopt;
  const std::string folder = folderOf(unit.program);
  const bool privateTmp = !isTemporary(folder) && !isTemporary(unit.settingsRoot + '/');

  std::string text = "[Unit]\nDescription=" + unit.description +
                     (unit.isTemplate ? ", instance %i" : "") + "\nAfter=network.target\n\n";
  text += "[Service]\nType=notify\n";
  // The colon keeps dollar signs what they are.
  text += "ExecStart=:" + quoted(unit.program) + '\n';
  text += "Environment=" + quoted("QUORVANE_REGISTRY=" + unit.settingsRoot) + '\n';
  if (unit.isTemplate) text += "Environment=QUORVANE_INSTANCE=%i\n";
  text += "Restart=on-failure\nRestartSec=1\nTimeoutStopSec=20\nLimitNOFILE=65536\n";
  text += "ReadWritePaths=" + quoted(folder) + ' ' + quoted('-' + unit.settingsRoot) + '\n';
  text += std::string("PrivateTmp=") + (privateTmp ? "yes" : "no") + '\n';
  text.append(kHardening);
  text += "\n[Install]\nWantedBy=multi-user.target\n";
  return text;
}

}  // namespace quorvane
