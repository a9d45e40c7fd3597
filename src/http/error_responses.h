#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Complete error responses, head and body in one text. Both close the connection. Their wording,
/// the bare date in the second line and "No Found" included, is known to clients and fixed.
/// `date` is the present time as `HttpDates` writes it.
namespace error_responses {

/// `fileName` appears in the page as it is.
std::string notFound(std::string_view fileName, std::string_view date, std::string_view server);

std::string badRequest(std::string_view date, std::string_view server);

}  // namespace error_responses

}  // namespace quorvane
