#include "http/error_responses.h"

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

std::string head(std::string_view status, std::string_view date, std::string_view server,
                 std::size_t length) {
  std::string text("HTTP/1.1 ");
  text.append(status).append("\r\n").append(date).append("\r\nServer: ").append(server);
  text += "\r\nConnection: Close\r\nContent-Type: text/html\r\nContent-Length: ";
  return text + std::to_string(length) + "\r\n\r\n";
}

}  // namespace

std::string notFound(std::string_view fileName, std::string_view date, std::string_view server) {
  const std::size_t length = kNotFoundStart.size() + fileName.size() + kNotFoundEnd.size();
  std::string text = head("404 No Found", date, server, length);
  return text.append(kNotFoundStart).append(fileName).append(kNotFoundEnd);
}

std::string badRequest(std::string_view date, std::string_view server) {
  return head("400 Bad Request", date, server, kBadRequestBody.size()).append(kBadRequestBody);
}

}  // namespace error_responses

}  // namespace quorvane
