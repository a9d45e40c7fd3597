#include "script/objects/server_variables.h"

#include <algorithm>

#include "http/clsHTTPParser.h"
#include "http/serverMod.h"
#include "proxies/host_text.h"
#include "script/objects/header_variables.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"

namespace quorvane {

namespace {

struct Source {
  const clsHTTPParser& request;
  const HeaderVariables& headers;
  const ServerState& state;
};

std::string header(const Source& source, std::string_view name) {
  const auto* line = source.headers.named(name);
  return line ? std::string(line->value) : std::string();
}

std::string contentLength(const Source& source) {
  return source.request.redirected() ? std::string() : header(source, "content-length");
}

std::string scriptName(const Source& source) {
  return source.request.DocumentPath() + source.request.DocumentTitle();
}

std::string pathInfo(const Source& source) {
  return scriptName(source) + source.request.pathInfo();
}

std::string serverHost(const Source& source) {
  return std::string(host_text::name(source.request.HostAddr()));
}

std::string serverPort(const Source& source) {
  const std::uint16_t port = source.request.visitor().port;
  return std::to_string(port > 0 ? port : source.state.ServerPort);
}

/// What a header line is called among the variables.
std::string variableName(std::string_view headerName) {
  std::string name = "HTTP_" + upperCase(headerName);
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

std::string allHeaders(const Source& source, bool raw) {
  std::string all;
  for (const auto& entry : source.headers) {
    const std::string_view name = entry.value.name;
    all.append(raw ? std::string(name) : variableName(name))
        .append(raw ? ": " : ":")
        .append(entry.value.value)
        .append("\r\n");
  }
  return all;
}

struct Variable {
  std::string_view name;
  std::string (*value)(const Source&);
};

constexpr Variable kVariables[] = {
    {"ALL_HTTP", [](const Source& s) { return allHeaders(s, false); }},
    {"ALL_RAW", [](const Source& s) { return allHeaders(s, true); }},
    {"APPL_PHYSICAL_PATH",
     [](const Source& s) { return paths::withSeparator(s.state.ScriptsFolder); }},
    {"CONTENT_LENGTH", contentLength},
    {"CONTENT_TYPE", [](const Source& s) { return header(s, "content-type"); }},
    {"GATEWAY_INTERFACE", [](const Source&) { return std::string("CGI/1.1"); }},
    {"HTTPS",
     [](const Source& s) { return std::string(s.request.visitor().isSecure ? "on" : "off"); }},
    {"PATH_INFO", pathInfo},
    {"PATH_TRANSLATED",
     [](const Source& s) { return paths::native(s.state.ScriptsFolder + pathInfo(s)); }},
    {"QUERY_STRING", [](const Source& s) { return s.request.DocumentQueryString(); }},
    {"REMOTE_ADDR", [](const Source& s) { return s.request.RemoteIP(); }},
    {"REMOTE_HOST", [](const Source& s) { return s.request.RemoteIP(); }},
    {"REQUEST_METHOD", [](const Source& s) { return std::string(s.request.method()); }},
    {"SCRIPT_NAME", scriptName},
    {"SERVER_NAME", serverHost},
    {"SERVER_PORT", serverPort},
    {"SERVER_PORT_SECURE",
     [](const Source& s) { return std::string(s.request.visitor().isSecure ? "1" : "0"); }},
    {"SERVER_PROTOCOL", [](const Source& s) { return std::string(s.request.head().version()); }},
    {"SERVER_SOFTWARE", [](const Source& s) { return serverName(s.state); }},
    {"URL", scriptName},
};

}  // namespace

std::string serverVariable(std::string_view name, const clsHTTPParser& request,
                           const HeaderVariables& headers, const ServerState& state) {
  constexpr std::string_view kHeaderPrefix = "http_";
  const Source source{request, headers, state};
  for (const Variable& variable : kVariables) {
    if (equalsNoCase(variable.name, name)) return variable.value(source);
  }
  if (!startsWithNoCase(name, kHeaderPrefix)) return {};
  std::string lineName(name.substr(kHeaderPrefix.size()));
  std::replace(lineName.begin(), lineName.end(), '_', '-');
  return header(source, lineName);
}

std::vector<std::string> serverVariableNames(const HeaderVariables& headers) {
  std::vector<std::string> names;
  for (const Variable& variable : kVariables) names.emplace_back(variable.name);
  for (const auto& entry : headers) names.push_back(variableName(entry.value.name));
  return names;
}

}  // namespace quorvane
