#include "qvscript/page_program.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/system.h"
#include "script/customary/page_reader.h"
#include "script/translation/include_expansion.h"
#include "script/translation/page_translator.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane::qvscript {

bool isPage(const std::string& path) {
  return equalsNoCase(paths::extensionOf(path), ".qvs");
}

std::string pageProgram(const std::string& path, std::string source) {
  namespace fs = std::filesystem;
  const std::unique_ptr<Files> files = makeFiles();
  // Where the document root is can't be told here, so a page may include from anywhere.
  const std::string root = fs::path(path).root_path().string();
  const std::string folder = fs::path(path).parent_path().string();
  return translatePage(expandIncludes(std::move(source), [&](const std::string& name) {
    return readInclude(*files, root, folder, name, true);
  }));
}

namespace {

/// As the server with `Customary` set makes it; where its root is can't be told here, so it is the
/// page's folder.
customary::PageProgram customaryProgram(const std::string& path, std::string_view source) {
  const std::unique_ptr<Files> files = makeFiles();
  const std::string root(paths::folderOf(path));
  const auto include = [&](const std::string& from, const std::string& name,
                           bool isVirtual) -> std::optional<customary::IncludedFile> {
    const auto wanted = RootedPath::resolved(
        root, isVirtual ? std::string_view(root) : paths::folderOf(from), name);
    auto found = wanted ? files->find(*wanted) : std::nullopt;
    auto text = found ? files->readAll(*found) : std::nullopt;
    if (!text) return std::nullopt;
    return customary::IncludedFile{std::move(*found), std::move(*text)};
  };
  return customary::readPage(path, source, customary::kAnsi, include);
}

/// Every line, from `first` on, behind the file and the line that it comes from.
std::string listed(std::string_view program, const customary::LineMap& lines, std::uint32_t first) {
  std::string listing;
  for (std::uint32_t line = 1; !program.empty(); ++line) {
    const std::size_t end = std::min(program.find('\n'), program.size());
    const auto place = lines.place(line, 0);
    if (line >= first && place) {
      listing.append(paths::fileNameOf(place->file)).append(1, ':');
      listing.append(std::to_string(place->line)).append("\t");
      listing.append(program.substr(0, end)).append("\n");
    }
    program.remove_prefix(std::min(end + 1, program.size()));
  }
  return listing;
}

/// The program, and behind it the page's JScript.
std::string customaryListing(const std::string& path, std::string_view source) {
  const customary::PageProgram page = customaryProgram(path, source);
  if (page.fault) {
    return page.fault->place.file + ":" + std::to_string(page.fault->place.line) + "\t" +
           page.fault->text + "\n";
  }
  // The first line holds nothing but, perhaps, the mark of UTF-8.
  std::string listing = listed(page.program, page.lines, 2);
  return listing.append(listed(page.script, page.scriptLines, 1));
}

}  // namespace

std::string pageListing(const std::string& path, std::string source) {
  if (equalsNoCase(paths::extensionOf(path), ".asp")) return customaryListing(path, source);
  constexpr std::string_view kLineEnd = "\r\n";
  const std::string program = pageProgram(path, std::move(source));
  std::string listing;
  std::size_t number = 0;
  for (std::size_t at = 0; at < program.size(); ++number) {
    const std::size_t end = program.find(kLineEnd, at);
    listing.append(std::to_string(number)).append("\t");
    listing.append(program, at, end - at).append("\n");
    at = end == std::string::npos ? end : end + kLineEnd.size();
  }
  return listing;
}

}  // namespace quorvane::qvscript
