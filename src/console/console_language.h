#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "components/language_texts.h"
#include "console/form_model.h"
#include "support/clsMUI.h"

namespace quorvane {

/// The language of the console and of the numbered texts that pages ask for.
class ConsoleLanguage final : public LanguageTexts {
 public:
  /// `files` outlives the object. `userDefaultLCID` stands for the user's own language where that
  /// is wanted.
  ConsoleLanguage(const Files& files, std::int32_t userDefaultLCID)
      : mui_(files, userDefaultLCID) {}

  /// Loads the language from a folder of language files, or the nearest there is, and puts the
  /// form's texts into it. Returns the language loaded, 0 for none; the form's texts stay then.
  std::int32_t choose(const std::string& folder, std::int32_t wanted, FormModel& form);

  std::string numberedText(int number, std::span<const std::string> values) const override {
    return mui_.Text(number, values);
  }

 private:
  clsMUI mui_;
};

}  // namespace quorvane
