#include "tools/qvmpack_pages.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "script/translation/include_expansion.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

bool hasExtension(const ModuleFile& file, std::string_view extension) {
  return equalsNoCase(paths::extensionOf(file.name), extension);
}

std::string shownPath(const ModuleFile& file) {
  return file.folder.empty() ? file.name : file.folder + '/' + file.name;
}

template <std::size_t count>
bool holdsAny(const ModuleFile& file, const std::array<std::string_view, count>& texts) {
  return std::any_of(texts.begin(), texts.end(), [&](std::string_view text) {
    return findNoCase(file.content, text) != std::string_view::npos;
  });
}

}  // namespace

std::optional<std::string> expandPage(ModuleFile& file, const std::string& root,
                                      const Files& files) {
  if (!hasExtension(file, ".qvs")) return std::nullopt;
  const std::string folder = paths::withSeparator(paths::withSeparator(root) + file.folder);
  std::string last;
  bool isMissing = false;
  bool hasIncludes = false;
  const auto read = [&](const std::string& name) {
    auto found = readInclude(files, root, folder, name, true);
    last = name;
    isMissing = !found;
    hasIncludes = true;
    return found;
  };
  std::string expanded = expandIncludes(file.content, read);
  if (!hasIncludes) return std::nullopt;
  if (isMissing) return shownPath(file) + " includes \"" + last + "\", which is not there";
  if (expanded.starts_with("Too many include files")) {
    return shownPath(file) + " has too many includes at \"" + last + "\"";
  }
  file.content = std::move(expanded);
  return std::nullopt;
}

std::vector<std::string> needsBesideTheModule(const ModuleFile& file) {
  static constexpr std::array<std::string_view, 2> kPages = {"server.execute", "server.transfer"};
  static constexpr std::array<std::string_view, 6> kSizes = {
      "?rx=", "&rx=", "&amp;rx=", "?ry=", "&ry=", "&amp;ry="};
  std::vector<std::string> sentences;
  const bool isPage = hasExtension(file, ".qvs");
  const bool isText = isPage || hasExtension(file, ".htm") || hasExtension(file, ".html");
  if (isPage && holdsAny(file, kPages)) {
    sentences.push_back(shownPath(file) +
                        " runs other pages: the server needs these as files beside the module");
  }
  if (isText && holdsAny(file, kSizes)) {
    sentences.push_back(shownPath(file) +
                        " resizes pictures: the server needs these as files beside the module");
  }
  return sentences;
}

}  // namespace quorvane
