#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

class HeaderVariables;
class clsHTTPParser;
struct ServerState;

/// The value of one of the customary server variables ("REMOTE_ADDR", "HTTP_USER_AGENT", ...),
/// letter case aside; empty for an unknown one.
std::string serverVariable(std::string_view name, const clsHTTPParser& request,
                           const HeaderVariables& headers, const ServerState& state);

/// The names of all that have a value of their own, and of the request's header lines.
std::vector<std::string> serverVariableNames(const HeaderVariables& headers);

}  // namespace quorvane
