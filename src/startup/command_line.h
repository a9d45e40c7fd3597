#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The program's arguments. A switch counts wherever its text occurs, in any letter case:
/// "/startnow" holds "/start" as well.
class CommandLine {
 public:
  explicit CommandLine(std::string_view text);

  bool has(std::string_view lowerCaseSwitch) const {
    return text_.find(lowerCaseSwitch) != std::string::npos;
  }
  const std::string& text() const { return text_; }  ///< in lower case

 private:
  std::string text_;
};

/// What the program prints, instead of doing anything, when its only argument asks about the
/// program itself; nothing for every other command line.
std::optional<std::string> answerAbout(const CommandLine& line, std::string_view version);

}  // namespace quorvane
