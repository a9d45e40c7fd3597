#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// The statuses that the server itself answers with, by their numbers.
enum class Status : std::uint16_t {
  Continue = 100,
  Ok = 200,
  NoContent = 204,
  PartialContent = 206,
  NotModified = 304,
  BadRequest = 400,
  Forbidden = 403,
  NotFound = 404,
  MethodNotAllowed = 405,
  NotAcceptable = 406,
  RequestTimeout = 408,
  LengthRequired = 411,
  PreconditionFailed = 412,
  ContentTooLarge = 413,
  UriTooLong = 414,
  RangeNotSatisfiable = 416,
  ExpectationFailed = 417,
  HeaderFieldsTooLarge = 431,
  InternalServerError = 500,
  NotImplemented = 501,
  ServiceUnavailable = 503,
  VersionNotSupported = 505,
};

/// Number and reason: "404 Not Found".
std::string_view statusText(Status status);

}  // namespace quorvane
