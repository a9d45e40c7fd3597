#include "support/clsMUI.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <optional>
#include <utility>

#include "support/clsZipString.h"
#include "support/files.h"
#include "support/language_form.h"
#include "support/language_text.h"
#include "support/local_time.h"
#include "support/locale_id.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kFileTag = "QVLF";
/// Two bytes and a number that readers of the format pass over.
constexpr std::string_view kFormatBytes("\x01\x00", 2);
constexpr std::int32_t kFormatNumber = 760920;
constexpr std::size_t kPackedLengthOffset = 22;
constexpr std::size_t kHeaderLength = 26;

/// Far more than a program's texts take; what is larger is no language file.
constexpr std::uint64_t kMostFileBytes = 16U << 20;
constexpr std::size_t kMostTextBytes = std::size_t{64} << 20;

void append(std::string& out, std::uint64_t value, int width) {
  for (int i = 0; i < width; ++i) out += static_cast<char>(value >> (8 * i) & 0xFF);
}

std::int32_t signedLongAt(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return static_cast<std::int32_t>(value);
}

/// Days since 30 December 1899, the time as the fraction.
double dayCount(const CalendarTime& time) {
  using namespace std::chrono;
  const auto day = [](int y, int m, int d) {
    return sys_days{year{y} / month{static_cast<unsigned>(m)} /
                    std::chrono::day{static_cast<unsigned>(d)}};
  };
  const auto days = day(time.year, time.month, time.day) - day(1899, 12, 30);
  return static_cast<double>(days.count()) +
         (time.hour * 3600 + time.minute * 60 + time.second) / 86400.0;
}

std::string fileHeader(std::size_t textLength, const CalendarTime& changed,
                       std::size_t packedLength) {
  std::string header(kFileTag);
  header += kFormatBytes;
  append(header, kFormatNumber, 4);
  append(header, textLength, 4);
  append(header, std::bit_cast<std::uint64_t>(dayCount(changed)), 8);
  append(header, packedLength, 4);
  return header;
}

struct PlaceName {
  TextPlace place;
  std::string_view before;  ///< what stands in a key before the text's number
  std::string_view after;   ///< empty when the texts of this place bear no number
};
constexpr std::array kPlaces{
    PlaceName{TextPlace::Caption, ".Caption", ""},
    PlaceName{TextPlace::Text, ".Text", ""},
    PlaceName{TextPlace::ToolTipText, ".ToolTipText", ""},
    PlaceName{TextPlace::Tabs, ".Tabs[", "].Caption"},
    PlaceName{TextPlace::TabCaption, ".TabCaption[", "]"},
    PlaceName{TextPlace::ColumnHeaders, ".ColumnHeaders[", "].Text"},
};

/// Calls `use(key, control, place, number)` for every text of every control.
template <class Use>
void forEachText(LanguageForm& form, Use use) {
  for (std::size_t i = 0; i < form.controlCount(); ++i) {
    LanguageControl& control = form.control(i);
    std::string name = form.name() + '.' + control.name();
    if (const auto index = control.index()) name += '(' + std::to_string(*index) + ')';
    for (const PlaceName& place : kPlaces) {
      const TextRange range = control.range(place.place);
      for (int number = range.first; number < range.first + range.count; ++number) {
        std::string key = name + std::string(place.before);
        if (!place.after.empty()) key += std::to_string(number) + std::string(place.after);
        use(key, control, place.place, number);
      }
    }
  }
}

std::string captionKey(const LanguageForm& form) {
  return form.name() + ".Caption";
}

std::string filledIn(std::string text, clsMUI::Values values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    text = replaceAll(text, '%' + std::to_string(i + 1), values[i]);
  }
  return text;
}

}  // namespace

std::string clsMUI::AvailableLangName(std::int32_t lnIndex) const {
  return lnIndex >= 0 && lnIndex < AvailableLangCount() ? available_[lnIndex].name : "";
}

std::int32_t clsMUI::AvailableLCID(std::int32_t lnIndex) const {
  return lnIndex >= 0 && lnIndex < AvailableLangCount() ? available_[lnIndex].lcid : 0;
}

bool clsMUI::IsAvailable(std::int32_t thisLCID) const {
  return std::any_of(available_.begin(), available_.end(),
                     [&](const Language& language) { return language.lcid == thisLCID; });
}

void clsMUI::RefreshLangList() {
  available_.clear();
  for (const std::string& name : files_.list(langFolder_)) {
    if (!equalsNoCase(paths::extensionOf(name), ".lng")) continue;
    const std::string path = langFolder_ + name;
    const auto heading = parseLanguageHeading(DecodeLangFile(path));
    if (heading) available_.push_back({path, heading->lcid, heading->name});
  }
  std::stable_sort(available_.begin(), available_.end(),
                   [](const Language& a, const Language& b) { return a.name < b.name; });
}

void clsMUI::setLangFolder(std::string folder) {
  langFolder_ = paths::withSeparator(std::move(folder));
  RefreshLangList();
}

void clsMUI::setLCID(std::int32_t wanted) {
  if (available_.empty()) RefreshLangList();
  if (available_.empty()) return;
  if (wanted == 0) wanted = userDefaultLCID_;
  lcid_ = 0;
  if (load(wanted)) return;
  load(wanted == kBrazilianPortugueseLCID ? kPortugueseLCID : kEnglishLCID);
}

/// Only the first file of a language is tried.
bool clsMUI::load(std::int32_t wanted) {
  const auto found =
      std::find_if(available_.begin(), available_.end(),
                   [&](const Language& language) { return language.lcid == wanted; });
  if (found == available_.end()) return false;
  const std::string text = DecodeLangFile(found->path);
  if (!text.starts_with(kLanguageTag)) return false;
  const auto lines = languageLines(text);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (auto entry = parseLanguageLine(lines[i])) setEntry(entry->key, std::move(entry->text));
  }
  lcid_ = wanted;
  return true;
}

void clsMUI::setEntry(const std::string& key, std::string text) {
  if (std::string* held = texts_.find(key)) {
    *held = std::move(text);
  } else {
    texts_.add(key, std::move(text));
  }
}

std::string clsMUI::TextObj(std::string_view key, Values values) const {
  const std::string* text = texts_.find(key);
  return text != nullptr ? filledIn(*text, values) : "";
}

std::string clsMUI::Text(std::int32_t number, Values values) const {
  return TextObj(numberedTextKey(number), values);
}

void clsMUI::SetText(std::int32_t txtID, std::string txtData) {
  setEntry(numberedTextKey(txtID), std::move(txtData));
}

void clsMUI::SetFormLang(LanguageForm& oForm) const {
  if (const std::string* caption = texts_.find(captionKey(oForm))) oForm.setCaption(*caption);
  forEachText(
      oForm, [this](const std::string& key, LanguageControl& control, TextPlace place, int number) {
        if (const std::string* text = texts_.find(key)) control.setText(place, number, *text);
      });
}

void clsMUI::CaptureFormData(LanguageForm& oForm) {
  setEntry(captionKey(oForm), oForm.caption());
  forEachText(oForm, [this](const std::string& key, const LanguageControl& control, TextPlace place,
                            int number) { setEntry(key, control.text(place, number)); });
}

void clsMUI::SaveLangFile(const std::string& trgPath, std::int32_t lLCID,
                          const std::string& sLCDesc) const {
  std::string text = languageHeading(lLCID, sLCDesc);
  for (const auto& entry : texts_) text += "\r\n" + languageLine(entry.key, entry.value);
  clsZipString(files_).SaveFileB(trgPath, text);
}

bool clsMUI::EncodeLangFile(const std::string& srcFile, const std::string& trgFile) const {
  const auto source = files_.stat(srcFile);
  if (!source) return false;
  const clsZipString zip(files_);
  const std::string text = zip.LoadFileB(srcFile);
  if (text.size() < kShortestText || text.size() > kMostTextBytes) return false;
  std::string packed = text;
  if (!clsZipString::CompressStringB(packed, clsZipString::kGzip)) return false;
  std::string file = fileHeader(text.size(), localTimeOf(source->modified), packed.size()) + packed;
  return zip.SaveFileB(trgFile, file);
}

std::string clsMUI::DecodeLangFile(const std::string& srcFile) const {
  const auto info = files_.stat(srcFile);
  if (!info || info->size > kMostFileBytes) return {};
  const std::string file = clsZipString(files_).LoadFileB(srcFile);
  if (file.size() < kHeaderLength) return {};
  const std::int32_t claimed = signedLongAt(file, kPackedLengthOffset);
  if (claimed <= 0 || static_cast<std::size_t>(claimed) > file.size() - kHeaderLength) return {};
  std::string text = file.substr(kHeaderLength, static_cast<std::size_t>(claimed));
  const bool done = clsZipString::UncompressStringB(text, clsZipString::kGzip, kMostTextBytes);
  return done ? text : std::string();
}

}  // namespace quorvane
