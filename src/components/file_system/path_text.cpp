#include "components/file_system/path_text.h"

#include "platform/fold_case.h"
#include "support/paths.h"

namespace quorvane::path_text {

namespace {

std::string_view withoutEndSeparators(std::string_view path) {
  while (!path.empty() && paths::isSeparator(path.back())) path.remove_suffix(1);
  return path;
}

}  // namespace

std::string_view driveOf(std::string_view path) {
  return path.size() > 1 && path[1] == ':' ? path.substr(0, 2) : std::string_view();
}

std::string_view nameOf(std::string_view path) {
  path.remove_prefix(driveOf(path).size());
  return paths::fileNameOf(withoutEndSeparators(path));
}

std::string_view parentOf(std::string_view path) {
  const std::string_view name = nameOf(path);
  if (name.empty()) return {};
  const auto before = static_cast<std::size_t>(name.data() - path.data());
  const std::string_view parent = path.substr(0, before);
  const std::string_view cut = withoutEndSeparators(parent);
  const bool isRoot = cut.size() == driveOf(path).size();
  return isRoot ? parent : cut;
}

std::string_view baseNameOf(std::string_view path) {
  const std::string_view name = nameOf(path);
  return name.substr(0, name.rfind('.'));
}

std::string_view extensionOf(std::string_view path) {
  const std::string_view extension = paths::extensionOf(nameOf(path));
  return extension.empty() ? extension : extension.substr(1);
}

std::string joined(std::string_view folder, std::string_view name) {
  if (folder.empty()) return std::string(name);
  const bool backslashes = folder.find('\\') != folder.npos;
  std::string path(folder);
  if (!paths::isSeparator(path.back()) && path.back() != ':') {
    path += backslashes ? '\\' : paths::kSeparator;
  }
  while (!name.empty() && paths::isSeparator(name.front())) name.remove_prefix(1);
  return path.append(name);
}

bool hasWildcards(std::string_view name) {
  return name.find_first_of("*?") != name.npos;
}

bool matches(std::string_view name, std::string_view pattern) {
  if (pattern == "*.*") return true;
  const std::string text = foldCase(name);
  const std::string wanted = foldCase(pattern);
  std::size_t at = 0;
  std::size_t want = 0;
  std::size_t star = wanted.npos;  // the last one, and where the text went on behind it
  std::size_t resume = 0;
  while (at < text.size()) {
    if (want < wanted.size() && wanted[want] == '*') {
      star = want++;
      resume = at;
    } else if (want < wanted.size() && (wanted[want] == '?' || wanted[want] == text[at])) {
      ++want;
      ++at;
    } else if (star != wanted.npos) {
      want = star + 1;
      at = ++resume;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of('*', want) == wanted.npos;
}

}  // namespace quorvane::path_text
