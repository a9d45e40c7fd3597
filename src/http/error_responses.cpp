#include "http/error_responses.h"

#include "http/response_heads.h"

namespace quorvane {

namespace error_responses {
namespace {

constexpr std::string_view kNotFoundStart =
    "<html><head><title>The page cannot be found</title></head><body>"
    "<font face='Arial' size='4' color='#990000'><b>HTTP/1.1 404 Not found</b></font><hr>"
    "<p><font face='Verdana' size='2'><b>Error 404</b><br>"
    "<font color='#990000'>The page cannot be found</font><br><br>"
    "<i>";
constexpr std::string_view kNotFoundEnd = "</i></font></p></body></html>";
static_assert(kNotFoundStart.size() + kNotFoundEnd.size() == 294);

constexpr std::string_view kBadRequestBody =
    "<html><head><title>400 Bad Request</title></head><body>"
    "<font face='Arial' size='4' color='#990000'><b>Bad Request</b></font><hr>"
    "<p><font face='Verdana' size='2' color='#990000'>Your browser sent a request that this server "
    "could not understand.</font>"
    "</p></body></html>";
static_assert(kBadRequestBody.size() == 268);

constexpr std::string_view kForbiddenBody =
    "<html><head><title>403 Forbidden</title></head><body><h1>Forbidden</h1></body></html>";

}  // namespace

std::string notFound(ResponseHeads& heads, std::string_view fileName) {
  const std::size_t length = kNotFoundStart.size() + fileName.size() + kNotFoundEnd.size();
  std::string text = heads.error(Status::NotFound, length);
  return text.append(kNotFoundStart).append(fileName).append(kNotFoundEnd);
}

std::string badRequest(ResponseHeads& heads) {
  return heads.error(Status::BadRequest, kBadRequestBody.size()).append(kBadRequestBody);
}

std::string forbidden(ResponseHeads& heads) {
  return heads.ofPage("403 Forbidden", "Content-Type: text/html", kForbiddenBody.size(), false)
      .append(kForbiddenBody);
}

}  // namespace error_responses

}  // namespace quorvane
