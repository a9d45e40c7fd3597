#include "tools/qvlang_check.h"

#include <algorithm>
#include <cstddef>
#include <set>

#include "support/clsMUI.h"
#include "support/keyed_collection.h"
#include "support/language_text.h"
#include "support/text.h"

namespace quorvane {

namespace {

using Findings = std::vector<std::string>;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// "$007", or form and control joined by dots: anything else is never asked for.
bool looksLikeKey(std::string_view key) {
  if (key.find(' ') != std::string_view::npos) return false;
  if (!key.starts_with('$')) return key.find('.') != std::string_view::npos;
  const std::string_view digits = key.substr(1);
  return digits.size() >= 3 && std::all_of(digits.begin(), digits.end(), isDigit);
}

void checkHeading(std::string_view text, Findings& findings) {
  const auto heading = parseLanguageHeading(text);
  if (!text.starts_with(kLanguageTag)) {
    findings.push_back("The first line does not begin with \"QVLF V\".");
  } else if (!heading) {
    findings.push_back("The first line has no locale identifier after its first \"$\".");
  } else if (heading->name.empty()) {
    findings.push_back("The first line has no language name after its second \"$\".");
  }
}

void checkWhole(std::string_view text, Findings& findings) {
  if (text.size() < clsMUI::kShortestText) {
    findings.push_back(
        "The text has fewer than 1024 characters and is never encoded; a comment "
        "makes it longer.");
  }
  if (!text.empty() && text.size() % 65536 == 0) {
    findings.push_back(
        "A text of a multiple of 65536 characters can't be unpacked; a blank line "
        "helps.");
  }
  if (text.find('\0') != std::string_view::npos) {
    findings.push_back("The text holds a NUL character.");
  }
}

void checkLine(std::string_view line, const std::string& place, KeyedCollection<std::string>& seen,
               Findings& findings) {
  if (line.find_first_of("\r\n") != std::string_view::npos) {
    findings.push_back(place + ": a lone CR or LF; lines end in CR LF.");
  }
  const std::string_view trimmed = trimBlanks(line);
  if (trimmed.empty() || trimmed.starts_with(';')) return;
  const auto entry = parseLanguageLine(line);
  if (!entry) {
    findings.push_back(place + ": neither a comment nor key=text.");
    return;
  }
  if (!looksLikeKey(entry->key)) findings.push_back(place + ": no key: \"" + entry->key + "\".");
  if (const std::string* first = seen.find(entry->key)) {
    findings.push_back(place + ": \"" + entry->key + "\" stands in " + *first + " already.");
  } else {
    seen.add(entry->key, place);
  }
}

KeyedCollection<std::string> tableOf(std::string_view text) {
  KeyedCollection<std::string> table;
  const auto lines = languageLines(text);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (auto entry = parseLanguageLine(lines[i])) table.put(entry->key, entry->text);
  }
  return table;
}

std::set<std::string> markersOf(std::string_view text) {
  std::set<std::string> markers;
  for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
    std::size_t end = at + 1;
    while (end < text.size() && isDigit(text[end])) ++end;
    if (end > at + 1) markers.insert(std::string(text.substr(at, end - at)));
  }
  return markers;
}

}  // namespace

Findings checkLanguageText(std::string_view text) {
  Findings findings;
  checkHeading(text, findings);
  checkWhole(text, findings);
  KeyedCollection<std::string> seen;
  const auto lines = languageLines(text);
  for (std::size_t i = 1; i < lines.size(); ++i) {
    checkLine(lines[i], "line " + std::to_string(i + 1), seen, findings);
  }
  if (seen.empty()) findings.push_back("There is no text in it.");
  return findings;
}

Findings compareLanguageTexts(std::string_view text, std::string_view reference) {
  Findings findings;
  const auto table = tableOf(text);
  const auto wanted = tableOf(reference);
  for (const auto& entry : wanted) {
    const std::string* held = table.find(entry.key);
    if (held == nullptr) {
      findings.push_back("\"" + entry.key + "\" is missing.");
    } else if (markersOf(*held) != markersOf(entry.value)) {
      findings.push_back("\"" + entry.key + "\" takes other values than in the reference.");
    }
  }
  for (const auto& entry : table) {
    if (wanted.find(entry.key) == nullptr) {
      findings.push_back("\"" + entry.key + "\" is not in the reference.");
    }
  }
  return findings;
}

}  // namespace quorvane
