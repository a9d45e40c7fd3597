#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/status_lines.h"

namespace quorvane {

/// Keeps the status lines.
class RecordedLines final : public StatusLines {
 public:
  void LogLine(std::string_view text) override { lines.emplace_back(text); }

  std::vector<std::string> lines;
};

}  // namespace quorvane
