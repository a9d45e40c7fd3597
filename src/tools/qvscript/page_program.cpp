#include "qvscript/page_program.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/system.h"
#include "script/customary/page_reader.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane::qvscript {

bool isPage(const std::string& path) {
  return equalsNoCase(paths::extensionOf(path), ".qvs");
}

MappedPage pageProgram(const std::string& path, std::string source) {
  namespace fs = std::filesystem;
  const std::unique_ptr<Files> files = makeFiles();
  // Where the document root is can't be told here, so a page may include from anywhere.
  const std::string root = fs::path(path).root_path().string();
  const std::string folder = fs::path(path).parent_path().string();
  return mapPage({path, std::move(source)}, [&](const std::string& name) {
    return readInclude(*files, root, folder, name, true);
  });
}

namespace {

/// As the server with `Customary` set makes it; where its root is can't be told here, so it is the
/// page's folder.
customary::PageProgram customaryProgram(const std::string& path, std::string_view source) {
  const std::unique_ptr<Files> files = makeFiles();
  const std::string root(paths::folderOf(path));
  const auto include = [&](const std::string& from, const std::string& name,
                           bool isVirtual) -> std::optional<IncludedFile> {
    const auto wanted = RootedPath::resolved(
        root, isVirtual ? std::string_view(root) : paths::folderOf(from), name);
    auto found = wanted ? files->find(*wanted) : std::nullopt;
    auto text = found ? files->readAll(*found) : std::nullopt;
    if (!text) return std::nullopt;
    return IncludedFile{std::move(*found), std::move(*text)};
  };
  return customary::readPage(path, source, customary::kAnsi, include);
}

/// Calls `show` for every line that comes from somewhere, with its number.
template <class Show>
void forEachLine(std::string_view program, std::string_view lineEnd, const LineMap& lines,
                 const Show& show) {
  for (std::uint32_t line = 1; !program.empty(); ++line) {
    const std::size_t end = std::min(program.find(lineEnd), program.size());
    if (const auto place = lines.place(line, 0)) {
      show(line, std::string(paths::fileNameOf(place->file))
                     .append(1, ':')
                     .append(std::to_string(place->line))
                     .append(1, '\t')
                     .append(program.substr(0, end))
                     .append(1, '\n'));
    }
    program.remove_prefix(std::min(end + lineEnd.size(), program.size()));
  }
}

/// The program, and behind it the page's JScript.
std::string customaryListing(const std::string& path, std::string_view source) {
  const customary::PageProgram page = customaryProgram(path, source);
  if (page.fault) {
    return page.fault->place.file + ":" + std::to_string(page.fault->place.line) + "\t" +
           page.fault->text + "\n";
  }
  std::string listing;
  forEachLine(page.program, "\n", page.lines, [&](std::uint32_t line, const std::string& shown) {
    if (line > 1) listing.append(shown);  // the first is empty or the mark of UTF-8
  });
  forEachLine(page.script, "\n", page.scriptLines,
              [&](std::uint32_t, const std::string& shown) { listing.append(shown); });
  return listing;
}

}  // namespace

std::string pageListing(const std::string& path, std::string source) {
  if (equalsNoCase(paths::extensionOf(path), ".asp")) return customaryListing(path, source);
  const MappedPage page = pageProgram(path, std::move(source));
  std::string listing;
  forEachLine(page.program, "\r\n", page.lines, [&](std::uint32_t line, const std::string& shown) {
    listing.append(std::to_string(line - 1)).append(1, '\t').append(shown);
  });
  return listing;
}

}  // namespace quorvane::qvscript
