#include "http/status.h"

namespace quorvane {

std::string_view statusText(Status status) {
  switch (status) {
    case Status::Continue:
      return "100 Continue";
    case Status::Ok:
      return "200 OK";
    case Status::NoContent:
      return "204 No Content";
    case Status::PartialContent:
      return "206 Partial Content";
    case Status::NotModified:
      return "304 Not Modified";
    case Status::BadRequest:
      return "400 Bad Request";
    case Status::Forbidden:
      return "403 Forbidden";
    case Status::NotFound:
      return "404 Not Found";
    case Status::MethodNotAllowed:
      return "405 Method Not Allowed";
    case Status::NotAcceptable:
      return "406 Not Acceptable";
    case Status::RequestTimeout:
      return "408 Request Timeout";
    case Status::LengthRequired:
      return "411 Length Required";
    case Status::PreconditionFailed:
      return "412 Precondition Failed";
    case Status::ContentTooLarge:
      return "413 Content Too Large";
    case Status::UriTooLong:
      return "414 URI Too Long";
    case Status::RangeNotSatisfiable:
      return "416 Range Not Satisfiable";
    case Status::ExpectationFailed:
      return "417 Expectation Failed";
    case Status::HeaderFieldsTooLarge:
      return "431 Request Header Fields Too Large";
    case Status::InternalServerError:
      return "500 Internal Server Error";
    case Status::NotImplemented:
      return "501 Not Implemented";
    case Status::ServiceUnavailable:
      return "503 Service Unavailable";
    case Status::VersionNotSupported:
      return "505 HTTP Version Not Supported";
  }
  return {};
}

}  // namespace quorvane
