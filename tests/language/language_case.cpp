#include "language_case.h"

#include <charconv>

namespace quorvane {

namespace {

constexpr std::string_view kCaseMark = "'=== ";

std::string_view takeLine(std::string_view& text) {
  const auto end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::optional<std::string_view> behind(std::string_view line, std::string_view mark) {
  const auto at = line.rfind(mark);
  if (at == line.npos) return std::nullopt;
  line.remove_prefix(at + mark.size());
  if (line.starts_with(' ')) line.remove_prefix(1);
  return line;
}

LanguageCase::Error parseError(std::string_view text, std::uint32_t line) {
  LanguageCase::Error error;
  error.line = line;
  const char* end = text.data() + text.size();
  const char* rest = std::from_chars(text.data(), end, error.number).ptr;
  if (rest < end) error.text.assign(rest + 1, end);
  return error;
}

}  // namespace

std::vector<LanguageCase> parseLanguageCases(std::string_view file) {
  std::vector<LanguageCase> cases;
  for (std::uint32_t number = 1; !file.empty(); ++number) {
    const std::string_view line = takeLine(file);
    if (line.starts_with(kCaseMark)) {
      LanguageCase& next = cases.emplace_back();
      next.name = line.substr(kCaseMark.size());
      next.source.assign(number, '\n');
      continue;
    }
    if (cases.empty()) continue;
    LanguageCase& current = cases.back();
    (current.source += line) += '\n';
    if (const auto error = behind(line, "'!")) {
      current.error = parseError(*error, number);
    } else if (const auto text = behind(line, "'>")) {
      current.output.emplace_back(*text);
    }
  }
  return cases;
}

}  // namespace quorvane
