#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "support/keyed_collection.h"

namespace quorvane {

class Files;
class LanguageForm;

/// The console's texts in the user's language: a table of texts by number and by form control,
/// loaded from the language file (".lng") whose locale identifier is wanted, applied to forms,
/// captured from them and saved again.
///
/// No member fails loudly. A missing or damaged file loads nothing, and what the table has no text
/// for keeps the text it has. Nothing is allocated by a number that a file claims.
class clsMUI {
 public:
  using Values = std::span<const std::string>;

  /// `files` outlives the object. `userDefaultLCID` stands for the user's own language; see
  /// localeIdOf.
  clsMUI(const Files& files, std::int32_t userDefaultLCID)
      : files_(files), userDefaultLCID_(userDefaultLCID) {}

  std::int32_t UserDefaultLCID() const { return userDefaultLCID_; }

  /// Name of the program whose texts these are; only kept.
  const std::string& ProjectID() const { return projectID_; }
  void setProjectID(std::string name) { projectID_ = std::move(name); }

  /// The language files of the folder, sorted by the languages' names; places count from 0.
  std::int32_t AvailableLangCount() const { return static_cast<std::int32_t>(available_.size()); }
  std::string AvailableLangName(std::int32_t lnIndex) const;  ///< empty beyond the list
  std::int32_t AvailableLCID(std::int32_t lnIndex) const;     ///< 0 beyond the list
  bool IsAvailable(std::int32_t thisLCID) const;
  void RefreshLangList();

  /// The folder of language files, a separator at its end. Setting it reads what it offers.
  const std::string& LangFolder() const { return langFolder_; }
  void setLangFolder(std::string folder);

  /// The language loaded, 0 for none. Setting it loads the language wanted (0: the user's own),
  /// else the nearest there is: Portuguese for Brazil, otherwise English. Texts that the new
  /// language lacks stay as they were.
  std::int32_t LCID() const { return lcid_; }
  void setLCID(std::int32_t wanted);

  /// A text with "%1", "%2" and so on replaced by the values given; empty for an unknown key.
  std::string TextObj(std::string_view key, Values values = {}) const;
  std::string Text(std::int32_t number, Values values = {}) const;
  void SetText(std::int32_t txtID, std::string txtData);

  void SetFormLang(LanguageForm& oForm) const;
  void CaptureFormData(LanguageForm& oForm);

  /// Writes the table as a plain language text.
  void SaveLangFile(const std::string& trgPath, std::int32_t lLCID,
                    const std::string& sLCDesc) const;

  /// Makes a language file of a plain text of at least kShortestText characters. False when
  /// nothing was written.
  bool EncodeLangFile(const std::string& srcFile, const std::string& trgFile) const;
  static constexpr std::size_t kShortestText = 1024;

  /// The plain text in a language file; empty when it can't be read.
  std::string DecodeLangFile(const std::string& srcFile) const;

 private:
  struct Language {
    std::string path;
    std::int32_t lcid = 0;
    std::string name;
  };

  bool load(std::int32_t wanted);
  void setEntry(const std::string& key, std::string text);

  const Files& files_;
  std::int32_t userDefaultLCID_;
  std::string projectID_;
  std::string langFolder_;
  std::int32_t lcid_ = 0;
  KeyedCollection<std::string> texts_;  ///< in the order in which the keys were first set
  std::vector<Language> available_;     ///< sorted by name
};

}  // namespace quorvane
