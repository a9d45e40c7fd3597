#include "qvscript/page_program.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/system.h"
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

std::string pageListing(const std::string& path, std::string source) {
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
