#include "http/standard/errors.h"

#include <utility>

#include "http/header_lines.h"
#include "http/response_heads.h"

namespace quorvane {

Response standardError(ResponseHeads& heads, Status status, ErrorClient client, std::string lines) {
  std::string body = std::string(statusText(status)) + "\r\n";
  header_lines::add(lines, "Content-Type", "text/plain");
  Response response{heads.own(status, lines, body.size(), client.keepAlive), {}, client.keepAlive};
  if (!client.headOnly) response.body = std::move(body);
  return response;
}

}  // namespace quorvane
