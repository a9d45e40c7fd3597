#pragma once

#include <string_view>

namespace quorvane {

/// Where every part of the server writes its status lines. The console implements it.
class StatusLines {
 public:
  virtual ~StatusLines() = default;

  /// Writes one line; never fails towards its caller.
  virtual void LogLine(std::string_view text) = 0;
};

}  // namespace quorvane
