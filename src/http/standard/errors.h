#pragma once

#include <string>

#include "http/response.h"
#include "http/status.h"

namespace quorvane {

class ResponseHeads;

/// Who gets an error's answer.
struct ErrorClient {
  bool headOnly = false;
  bool keepAlive = false;
};

/// The answer of that status by the standard: a small plain text says what it is. `lines` stand in
/// its head as well, separated by CR LF.
Response standardError(ResponseHeads& heads, Status status, ErrorClient client,
                       std::string lines = {});

}  // namespace quorvane
