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

/// Makes what stands behind the last part's error a part of its own.
void splitBehindError(LanguageCase& current) {
  LanguageCase::Part& part = current.parts.back();
  const std::uint32_t lines = part.error->line;
  std::size_t end = 0;
  for (std::uint32_t i = 0; i < lines; ++i) end = part.source.find('\n', end) + 1;
  LanguageCase::Part next{std::string(lines, '\n') + part.source.substr(end), std::nullopt};
  part.source.resize(end);
  current.parts.push_back(std::move(next));
}

}  // namespace

std::vector<LanguageCase> parseLanguageCases(std::string_view file) {
  std::vector<LanguageCase> cases;
  for (std::uint32_t number = 1; !file.empty(); ++number) {
    const std::string_view line = takeLine(file);
    if (line.starts_with(kCaseMark)) {
      LanguageCase& next = cases.emplace_back();
      next.name = line.substr(kCaseMark.size());
      next.parts.push_back({std::string(number, '\n'), std::nullopt});
      continue;
    }
    if (cases.empty()) continue;
    LanguageCase& current = cases.back();
    const auto error = behind(line, "'!");
    if (error && current.parts.back().error) splitBehindError(current);
    LanguageCase::Part& part = current.parts.back();
    (part.source += line) += '\n';
    if (error) {
      part.error = parseError(*error, number);
    } else if (const auto text = behind(line, "'>")) {
      current.output.emplace_back(*text);
    }
  }
  return cases;
}

}  // namespace quorvane
