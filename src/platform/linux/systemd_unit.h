#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The unit files by which systemd knows services. A unit is named after its service, in small
/// letters and with hyphens for blanks: "Quorvane Server" is quorvane-server.service.

/// The template of numbered instances, and what the names of all of them begin with.
inline constexpr std::string_view kTemplateName = "quorvane@.service";
inline constexpr std::string_view kInstancePrefix = "quorvane@";

std::string unitNameOf(std::string_view service);

/// The service's name as far as the unit's tells it: with blanks again, letters as they stand.
std::string serviceNameOf(std::string_view unit);

/// Service names are the same whatever the case of their letters.
bool sameServiceName(std::string_view a, std::string_view b);

struct ServiceUnit {
  std::string description;
  std::string program;       ///< absolute path; its folder is served, logged to and cached in
  std::string settingsRoot;  ///< the store that the service is to read, absolute
  bool isTemplate = false;   ///< of numbered instances
};

/// The text of the unit file. Nothing when a path is not absolute or can't stand in a unit file
/// (it holds control characters).
std::optional<std::string> unitText(const ServiceUnit& unit);

}  // namespace quorvane
