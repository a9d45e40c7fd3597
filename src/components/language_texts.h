#pragma once

#include <span>
#include <string>

namespace quorvane {

/// The numbered texts of the language in use.
class LanguageTexts {
 public:
  virtual ~LanguageTexts() = default;

  /// The text with "%1", "%2" and so on replaced by `values`; empty for an unknown number.
  virtual std::string numberedText(int number, std::span<const std::string> values) const = 0;
};

}  // namespace quorvane
