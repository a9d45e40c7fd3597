#include "script/customary/error_answer.h"

#include <array>
#include <cstdio>

#include "script/customary/code_page.h"
#include "script/customary/server_texts.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/status_lines.h"
#include "support/visible_text.h"
#include "vbscript/syntax/lexer.h"

namespace quorvane::customary {

namespace {

constexpr std::size_t kMostSource = 1000;

std::string hexNumber(std::int32_t number) {
  // Numbers of the language are known by their form as codes of the system, too.
  constexpr std::uint32_t kScriptFailure = 0x800A0000;
  const auto code = number >= 0 ? kScriptFailure | static_cast<std::uint32_t>(number)
                                : static_cast<std::uint32_t>(number);
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%08x", code);
  return text.data();
}

std::string placeOf(const PageError& error, const std::string& root) {
  std::string place = paths::asAddress(error.file.narrow(), root);
  if (error.line > 0) place += ", line " + std::to_string(error.line);
  if (error.column > 0) place += ", column " + std::to_string(error.column);
  return place;
}

}  // namespace

vbs::String sourceLine(const Files& files, const Place& place, std::int32_t codePage) {
  const auto text = place.line == 0 ? std::nullopt : files.readAll(place.file);
  if (!text) return {};
  const bool isMarked = text->starts_with(vbs::kUtf8Mark);
  std::size_t start = isMarked ? vbs::kUtf8Mark.size() : 0;
  for (std::uint32_t i = 1; i < place.line; ++i) {
    const std::size_t end = text->find_first_of("\r\n", start);
    if (end == text->npos) return {};
    start = end + (text->compare(end, 2, "\r\n") == 0 ? 2 : 1);
  }
  const std::size_t end = std::min(text->find_first_of("\r\n", start), text->size());
  return decode(isMarked ? kUtf8 : codePage,
                std::string_view(*text).substr(start, std::min(end - start, kMostSource)));
}

PageError pageError(const vbs::ErrorReport& report, const std::optional<Place>& place,
                    const Files& files, std::int32_t codePage) {
  PageError error;
  error.number = report.number;
  error.category = vbs::String(report.source);
  error.description = vbs::String(report.description);
  if (place) {
    error.file = vbs::String(place->file);
    error.line = static_cast<std::int32_t>(place->line);
    if (place->column > 0) error.column = static_cast<std::int32_t>(place->column);
    error.source = sourceLine(files, *place, codePage);
  }
  return error;
}

std::string errorText(const PageError& error, const std::string& root) {
  std::string text = error.category.narrow() + " '" + hexNumber(error.number) +
                     "': " + error.description.narrow() + " (" + placeOf(error, root) + ")";
  const std::string source = error.source.narrow();
  if (!source.empty()) text += ": " + source;
  return visible(text, 2 * kMostSource);
}

void logError(const Services& services, const PageError& error) {
  services.log.LogLine("Page error: " + errorText(error, services.state.ScriptsFolder));
}

std::string errorHtml(const PageError& error, const std::string* root) {
  std::string page =
      "<html><head><title>Error</title></head><body>"
      "<h1>An error occurred</h1>";
  if (root) {
    // Whatever the code page is, ASCII is in it.
    const auto shown = [](const vbs::String& text) { return htmlEncoded(text, kAnsi).narrow(); };
    page += "<p>" + shown(error.category) + " '" + hexNumber(error.number) + "' (" +
            std::to_string(error.number) + ")</p><p><b>" + shown(error.description) +
            "</b></p><p>" + shown(vbs::String(placeOf(error, *root))) + "</p>";
    if (!error.source.empty()) page += "<pre>" + shown(error.source) + "</pre>";
  }
  return page + "</body></html>";
}

}  // namespace quorvane::customary
