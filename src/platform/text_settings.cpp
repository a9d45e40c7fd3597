#include "platform/text_settings.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "support/paths.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kBlanks = " \t\r";

struct Escape {
  char character;
  std::string_view written;
};
constexpr std::array kEscapes{Escape{'%', "%25"}, Escape{'\r', "%0D"}, Escape{'\n', "%0A"},
                              Escape{'\0', "%00"}, Escape{'=', "%3D"}};

std::string written(std::string_view text, bool isName) {
  std::string out;
  for (const char c : text) {
    const auto* escape = std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& e) {
      return e.character == c && (isName || c != '=');
    });
    if (escape != kEscapes.end()) {
      out += escape->written;
    } else {
      out += c;
    }
  }
  return out;
}

std::string meant(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto* escape = std::find_if(kEscapes.begin(), kEscapes.end(), [&](const Escape& e) {
      return equalsNoCase(text.substr(i, e.written.size()), e.written);
    });
    if (escape != kEscapes.end()) {
      out += escape->character;
      i += escape->written.size() - 1;
    } else {
      out += text[i];
    }
  }
  return out;
}

bool isComment(std::string_view line) {
  const std::string_view start = trimmed(line, kBlanks);
  return start.starts_with(';') || start.starts_with('#') || start.starts_with('[');
}

/// One line of a settings file, without its line end.
struct Line {
  std::string_view whole;
  bool holds(std::string_view wanted) const {
    if (isComment(whole)) return false;
    const auto own = name();
    return own && equalsNoCase(*own, wanted);
  }
  std::optional<std::string> name() const {
    const auto equals = whole.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return meant(trimmed(whole.substr(0, equals), kBlanks));
  }
  std::string text() const {
    std::string_view value = whole.substr(whole.find('=') + 1);
    if (value.ends_with('\r')) value.remove_suffix(1);
    return meant(value);
  }
};

/// How many bytes of a file's start some editors' mark of UTF-8 takes.
std::size_t markLength(std::string_view content) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  return content.starts_with(kMark) ? kMark.size() : 0;
}

std::vector<std::string_view> linesOf(std::string_view content) {
  return split(content.substr(markLength(content)), '\n');
}

std::string_view rootName(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::CurrentUser:
      return "HKEY_CURRENT_USER";
    case RegistryRoot::LocalMachine:
      return "HKEY_LOCAL_MACHINE";
    case RegistryRoot::Users:
      return "HKEY_USERS";
    case RegistryRoot::ClassesRoot:
      return "HKEY_CLASSES_ROOT";
  }
  return {};
}

bool isPart(std::string_view part) {
  return !part.empty() && part != "." && part != ".." &&
         part.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

/// The name as `folder` has it, else as given.
std::string spelled(const Files& files, const std::string& folder, const std::string& name) {
  const auto path = RootedPath::literal(folder, name);
  const auto found = path ? files.find(*path) : std::nullopt;
  return found.value_or(paths::join(folder, name));
}

std::string folderOf(const std::string& path) {
  return std::filesystem::path(path).parent_path().string();
}

void makeFolders(const Files& files, const std::string& folder) {
  if (folder.empty() || files.stat(folder)) return;
  const std::string above = folderOf(folder);
  if (above != folder) makeFolders(files, above);
  files.makeFolder(folder);
}

}  // namespace

std::optional<std::string> TextSettings::fileOf(RegistryRoot root, const std::string& key) const {
  const std::string_view top = rootName(root);
  if (top.empty()) return std::nullopt;
  std::string path = paths::join(root_, top);
  const auto parts = split(key, '\\');
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!isPart(parts[i])) return std::nullopt;
    const bool isLast = i + 1 == parts.size();
    path = spelled(files_, path, std::string(parts[i]) + (isLast ? ".ini" : ""));
  }
  return path;
}

bool TextSettings::keyExists(RegistryRoot root, const std::string& key) const {
  const auto file = fileOf(root, key);
  return file && files_.stat(*file);
}

bool TextSettings::createKey(RegistryRoot root, const std::string& key) {
  const auto file = fileOf(root, key);
  if (!file) return false;
  if (files_.stat(*file)) return true;
  makeFolders(files_, folderOf(*file));
  return files_.writeAll(*file, "");
}

std::optional<StoredValue> TextSettings::read(RegistryRoot root, const std::string& key,
                                              const std::string& name) const {
  const auto file = fileOf(root, key);
  const auto content = file ? files_.readAll(*file) : std::nullopt;
  if (!content) return std::nullopt;
  const std::string_view wanted = trimmed(name, kBlanks);
  for (const std::string_view whole : linesOf(*content)) {
    const Line line{whole};
    if (line.holds(wanted)) return StoredValue{StoredType::Text, line.text()};
  }
  return std::nullopt;
}

bool TextSettings::writeText(RegistryRoot root, const std::string& key, const std::string& name,
                             const std::string& text) {
  const auto file = fileOf(root, key);
  const auto content = file ? files_.readAll(*file) : std::nullopt;
  const std::string_view wanted = trimmed(name, kBlanks);
  if (!content || isComment(wanted)) return false;

  std::string result = content->substr(0, markLength(*content));
  bool replaced = false;
  for (const std::string_view whole : linesOf(*content)) {
    if (whole.empty() && whole.end() == std::string_view(*content).end()) break;
    const Line line{whole};
    if (!replaced && line.holds(wanted)) {
      result.append(whole.substr(0, whole.find('=') + 1)).append(written(text, false));
      replaced = true;
    } else {
      result.append(whole);
    }
    result += '\n';
  }
  if (!replaced) result += written(wanted, true) + "=" + written(text, false) + "\n";
  return files_.writeAll(*file, result);
}

std::vector<StoredLine> TextSettings::lines(RegistryRoot root, const std::string& key) const {
  const auto file = fileOf(root, key);
  const auto content = file ? files_.readAll(*file) : std::nullopt;
  std::vector<StoredLine> lines;
  if (!content) return lines;
  std::size_t number = 0;
  for (const std::string_view whole : linesOf(*content)) {
    ++number;
    const Line line{whole};
    if (trimmed(whole, kBlanks).empty() || isComment(whole)) continue;
    lines.push_back({number, line.name(), line.text()});
  }
  return lines;
}

}  // namespace quorvane
