#pragma once

#include <string>
#include <string_view>

namespace quorvane {

class ResponseHeads;

/// Complete error responses, head and body in one text. They close the connection. The wording of
/// the first two is known to clients and fixed.
namespace error_responses {

/// `fileName` appears in the page as it is.
std::string notFound(ResponseHeads& heads, std::string_view fileName);

std::string badRequest(ResponseHeads& heads);

/// For clients behind a proxy, which takes a whole head only.
std::string forbidden(ResponseHeads& heads);

}  // namespace error_responses

}  // namespace quorvane
