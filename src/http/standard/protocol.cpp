#include "http/standard/protocol.h"

#include <utility>

#include "http/clsHTTPParser.h"
#include "http/header_lines.h"
#include "http/standard/errors.h"
#include "support/paths.h"

namespace quorvane {

namespace {

constexpr std::string_view kFileMethods = "GET, HEAD, OPTIONS";
constexpr std::string_view kPageMethods = "GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS";

std::string allowLine(std::string_view methods) {
  std::string line;
  header_lines::writeOwn(line, "Allow", methods);
  return line;
}

ErrorClient clientOf(const clsHTTPParser& request) {
  return {request.head().method() == "HEAD", request.KeepAlive()};
}

}  // namespace

void StandardProtocol::parse(Collected& collected, clsHTTPParser& parser) {
  if (collected.direct.empty()) {
    parser.adoptRequest(collector_.head(), std::move(collected.storage), collected.bodyStart);
  } else {
    parser.setRequest(collector_.head(), collected.direct, collected.bodyStart);
  }
}

Framing StandardProtocol::framingFor(const clsHTTPParser& request) const {
  if (request.head().method() == "HEAD") return Framing::NoBody;
  return request.head().version() == "HTTP/1.0" ? Framing::UntilClose : Framing::Chunked;
}

std::optional<Response> StandardProtocol::byMethod(const clsHTTPParser& request,
                                                   const Place& place) {
  const std::string_view method = request.head().method();
  if (method == "GET" || method == "HEAD") return std::nullopt;
  const bool isPage = place.kind == Place::Kind::Page;
  const std::string_view allowed = isPage ? kPageMethods : kFileMethods;
  if (method == "OPTIONS" && (place.isThere() || request.head().target() == "*")) {
    const bool isAll = !place.isThere();
    const bool keepAlive = request.KeepAlive();
    return Response{heads_.ofPage(statusText(Status::Ok), allowLine(isAll ? kPageMethods : allowed),
                                  0, keepAlive),
                    {},
                    keepAlive};
  }
  const bool fits = method != "TRACE" && (isPage || place.kind == Place::Kind::Moved);
  if (fits || !place.isThere()) return std::nullopt;
  return standardError(heads_, Status::MethodNotAllowed, clientOf(request), allowLine(allowed));
}

Response StandardProtocol::refusal(const Collected& refused) {
  const bool headOnly = refused.requestClass == RequestClass::Head;
  return standardError(heads_, refused.refusal, {headOnly, false});
}

/// A file of a kind that is not served is refused whether it is there or not; a name without a kind
/// is just one that nothing has.
Response StandardProtocol::missing(const clsHTTPParser& request, const Place& place,
                                   std::string_view name) {
  const bool isRefused = place.kind == Place::Kind::Refused && !paths::extensionOf(name).empty();
  return standardError(heads_, isRefused ? Status::Forbidden : Status::NotFound, clientOf(request));
}

std::optional<Response> StandardProtocol::givenUp(Status why) {
  return standardError(heads_, why, {});
}

}  // namespace quorvane
