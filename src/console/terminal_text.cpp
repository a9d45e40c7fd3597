#include "console/terminal_text.h"

#include <array>

namespace quorvane {

namespace {

constexpr std::size_t kTabWidth = 8;
constexpr wchar_t kNoGlyph = L'\u00b7';
constexpr wchar_t kEllipsis = L'\u2026';

/// The characters 128 to 159, where Windows-1252 differs from Latin-1; 0 where it has none.
constexpr std::array<wchar_t, 32> kUpperControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

wchar_t glyphOf(char c) {
  constexpr unsigned kSoftHyphen = 0xAD;  // terminals disagree on its width
  const auto code = static_cast<unsigned char>(c);
  if (code < 0x20 || code == 0x7F) return kNoGlyph;
  if (code == kSoftHyphen) return L'-';
  if (code < 0x80 || code >= 0xA0) return static_cast<wchar_t>(code);
  const wchar_t glyph = kUpperControls[code - 0x80U];
  return glyph ? glyph : kNoGlyph;
}

/// The next line of `rest`, which loses it together with its line end.
std::string_view takeLine(std::string_view& rest) {
  const std::size_t end = rest.find_first_of("\r\n");
  const std::string_view line = rest.substr(0, end);
  if (end == std::string_view::npos) {
    rest = {};
  } else {
    rest.remove_prefix(end + (rest.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return line;
}

void breakLine(std::wstring_view cells, std::size_t width, std::vector<std::wstring>& lines) {
  while (cells.size() > width) {
    const std::size_t blank = cells.substr(0, width + 1).rfind(L' ');
    const bool atBlank = blank != std::wstring_view::npos && blank > 0;
    lines.emplace_back(cells.substr(0, atBlank ? blank : width));
    cells.remove_prefix(atBlank ? blank + 1 : width);
  }
  lines.emplace_back(cells);
}

}  // namespace

std::wstring cellsOf(std::string_view text) {
  std::wstring cells;
  cells.reserve(text.size());
  for (const char c : text) {
    if (c == '\t') {
      cells.append(kTabWidth - cells.size() % kTabWidth, L' ');
    } else {
      cells += glyphOf(c);
    }
  }
  return cells;
}

std::wstring fitted(std::wstring cells, std::size_t width) {
  const bool cut = cells.size() > width;
  cells.resize(width, L' ');
  if (cut && width > 0) cells.back() = kEllipsis;
  return cells;
}

std::vector<std::wstring> wrapped(std::string_view text, std::size_t width) {
  std::vector<std::wstring> lines;
  const bool endsOpen = text.empty() || (text.back() != '\r' && text.back() != '\n');
  while (!text.empty()) breakLine(cellsOf(takeLine(text)), width ? width : 1, lines);
  if (lines.empty() || !endsOpen) lines.emplace_back();
  return lines;
}

}  // namespace quorvane
