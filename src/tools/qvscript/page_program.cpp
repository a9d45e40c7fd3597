#include "qvscript/page_program.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/files.h"
#include "platform/system.h"
#include "script/include_expansion.h"
#include "script/page_translator.h"
#include "support/paths.h"

namespace quorvane::qvscript {

std::string pageProgram(const std::string& path, std::string source) {
  namespace fs = std::filesystem;
  constexpr std::string_view kLineEnd = "\r\n";
  const std::unique_ptr<Files> files = makeFiles();
  const auto include = [&](const std::string& name) -> std::optional<std::string> {
    const fs::path wanted = (fs::path(path).parent_path() / paths::native(name)).lexically_normal();
    const auto found = files->find(wanted.root_path().string(), wanted.relative_path().string());
    return found ? std::optional(files->readAll(*found).value_or("")) : std::nullopt;
  };
  const std::string program = translatePage(expandIncludes(std::move(source), include));

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
