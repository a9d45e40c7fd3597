#include "tools/qvmpack_folder.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include <optional>
#include <set>
#include <system_error>
#include <tuple>

#include "support/calendar_time.h"
#include "support/clsQVMod.h"
#include "support/local_time.h"
#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace fs = std::filesystem;

namespace {

using Sentences = std::vector<std::string>;

/// No locale has this identifier.
constexpr std::int32_t kNoLanguage = -1;

/// The language of a variant's name and the name without it. A name without "$" has no language;
/// nothing for a "$" without a number in front.
struct NameParts {
  std::int32_t language = kNoLanguage;
  std::string name;
};
std::optional<NameParts> partsOf(const std::string& name) {
  const std::size_t mark = name.find('$');
  if (mark == std::string::npos) return NameParts{kNoLanguage, name};
  const std::string number = name.substr(0, mark);
  const auto language = wholeNumber<std::int32_t>(number);
  // The server compares the number's own spelling, so no zeros or signs in front.
  if (!language || *language <= 0 || std::to_string(*language) != number) return std::nullopt;
  return NameParts{*language, name.substr(mark + 1)};
}

bool isVariant(const ModuleFile& file) {
  return file.name.find('$') != std::string::npos;
}

/// A folder's parts with neither empty ones nor ones that mean the folder itself.
std::vector<std::string> folderParts(std::string_view folder) {
  std::vector<std::string> parts;
  std::string part;
  const auto finish = [&] {
    if (!part.empty() && part != ".") parts.push_back(part);
    part.clear();
  };
  for (const char c : folder) {
    if (paths::isSeparator(c)) {
      finish();
    } else {
      part += c;
    }
  }
  finish();
  return parts;
}

std::string requestPath(const ModuleFile& file, const std::string& name) {
  std::string path = "/";
  for (const std::string& part : folderParts(file.folder)) path += part + '/';
  return path + name;
}

void sortForReader(std::vector<ModuleFile>& files) {
  const auto order = [](const ModuleFile& file) {
    return std::make_tuple(isVariant(file), file.folder.size() + file.name.size());
  };
  std::sort(files.begin(), files.end(), [&](const ModuleFile& a, const ModuleFile& b) {
    if (order(a) != order(b)) return order(a) < order(b);
    return std::tie(a.folder, a.name) < std::tie(b.folder, b.name);
  });
}

void addFile(const fs::path& path, const fs::path& base, const Files& files,
             FolderContents& contents) {
  const fs::path relative = path.lexically_relative(base);
  auto content = files.readAll(path.string());
  const auto info = files.stat(path.string());
  if (!content || !info) {
    contents.warnings.push_back(relative.generic_string() + " can't be read and is left out.");
  } else if (content->empty()) {
    contents.warnings.push_back(relative.generic_string() +
                                " is empty and left out: the server stops at an empty file.");
  } else {
    contents.files.push_back({relative.parent_path().generic_string(), relative.filename().string(),
                              dateTimeText(localTimeOf(info->modified)), std::move(*content)});
  }
}

/// Why the server doesn't serve a file that is in a module.
std::string reasonFor(const ModuleFile& file, bool isRepeated) {
  if (!partsOf(file.name)) {
    return "a \"$\" in a name marks a language variant and needs a locale identifier in front";
  }
  if (file.folder.size() == 1 && !paths::isSeparator(file.folder[0])) {
    return "a folder of one letter without a separator behind it counts as part of the name";
  }
  if (std::any_of(file.name.begin(), file.name.end(), paths::isSeparator)) {
    return "its name holds a separator";
  }
  if (isRepeated) return "another file has the same path but for letter case";
  return "its key occurs inside the keys of files before it";
}

/// Why nothing is to be written at or through `path`; empty when it is not there or no link. Where
/// the standard library knows links of some kinds only, those that lead elsewhere are known by
/// that.
std::string linkFault(const fs::path& path, const std::string& folder, const Files& files) {
  std::error_code ignored;
  if (fs::is_symlink(fs::symlink_status(path, ignored))) {
    return path.string() + " is a symbolic link";
  }
  const bool leadsOut = files.stat(path.string()) && !files.leadsBelow(path.string(), folder);
  return leadsOut ? path.string() + " leads out of the folder" : "";
}

}  // namespace

FolderContents readFolder(const std::string& folder, const std::string& leftOut,
                          const Files& files) {
  FolderContents contents;
  std::error_code error;
  fs::recursive_directory_iterator entry(folder, error);
  contents.readable = !error;
  const fs::recursive_directory_iterator end;
  while (!error && entry != end) {
    std::error_code ignored;
    const bool isTarget = fs::equivalent(entry->path(), leftOut, ignored);
    if (entry->is_regular_file(ignored) && !isTarget) {
      addFile(entry->path(), folder, files, contents);
    }
    entry.increment(error);
  }
  if (error) contents.readable = false;
  sortForReader(contents.files);
  return contents;
}

std::optional<ServedPath> servedAs(const ModuleFile& file) {
  const auto parts = partsOf(file.name);
  if (!parts) return std::nullopt;
  return ServedPath{requestPath(file, parts->name), parts->language};
}

Sentences unservedFiles(std::string_view bytes, const ModuleContents& contents,
                        const Files& files) {
  Sentences sentences;
  std::map<std::int32_t, clsQVMod> readers;
  std::set<std::string> seen;
  for (const ModuleFile& file : contents.files) {
    const auto parts = partsOf(file.name).value_or(NameParts{kNoLanguage, file.name});
    const auto [reader, isNew] = readers.try_emplace(parts.language, files);
    if (isNew) {
      reader->second.setLanguageID(parts.language);
      reader->second.loadModule(bytes);
    }
    const std::string path = requestPath(file, parts.name);
    const bool isRepeated = !seen.insert(std::to_string(parts.language) + lowerCase(path)).second;
    if (!partsOf(file.name) || reader->second.ModReadFile(path) != file.content) {
      sentences.push_back(requestPath(file, file.name) +
                          " would not be served: " + reasonFor(file, isRepeated) + ".");
    }
  }
  return sentences;
}

std::optional<RootedPath> unpackedPath(const ModuleFile& file, const std::string& folder) {
  const bool isName = !file.name.empty() && file.name != "." &&
                      std::none_of(file.name.begin(), file.name.end(), paths::isSeparator);
  if (!isName) return std::nullopt;
  return RootedPath::literal(folder, paths::withSeparator(file.folder) + file.name);
}

std::string unpackFile(const ModuleFile& file, const std::string& folder, const Files& files) {
  const auto target = unpackedPath(file, folder);
  if (!target) return "the name leads outside the folder or is no file name";
  const fs::path relative(target->relative());
  fs::path path(folder);
  std::error_code error;
  for (const fs::path& part : relative.parent_path()) {
    path /= part;
    if (std::string fault = linkFault(path, folder, files); !fault.empty()) return fault;
    if (!fs::exists(path, error) && !fs::create_directory(path, error)) {
      return path.string() + " can't be made";
    }
  }
  path /= relative.filename();
  if (std::string fault = linkFault(path, folder, files); !fault.empty()) return fault;
  return files.writeAll(path.string(), file.content) ? "" : path.string() + " can't be written";
}

}  // namespace quorvane
