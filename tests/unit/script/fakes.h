#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "components/language_texts.h"
#include "platform/fake/fake_process.h"
#include "platform/fake/fake_random.h"
#include "support/status_lines.h"

namespace quorvane {

class RecordedLines final : public StatusLines {
 public:
  void LogLine(std::string_view text) override { lines.emplace_back(text); }

  std::vector<std::string> lines;
};

/// Texts that tell what was asked for.
class EchoTexts final : public LanguageTexts {
 public:
  std::string numberedText(int number, std::span<const std::string> values) const override {
    std::string text = std::to_string(number);
    for (const std::string& value : values) text += "," + value;
    return text;
  }
};

}  // namespace quorvane
