#include "components/shell/command_words.h"

#include <array>
#include <optional>

#include "platform/process.h"
#include "support/text.h"

namespace quorvane::shell {

namespace {

std::optional<std::string> setVariable(std::string_view name, const Process& process) {
  for (const std::string& variable : process.environment()) {
    const std::size_t equals = variable.find('=');
    if (equals != variable.npos &&
        equalsNoCase(std::string_view(variable).substr(0, equals), name)) {
      return variable.substr(equals + 1);
    }
  }
  return std::nullopt;
}

/// What is asked for by the names that another system has for it.
std::optional<std::string> usualVariable(std::string_view name, const Process& process) {
  const auto is = [name](std::string_view known) { return equalsNoCase(name, known); };
  if (is("COMPUTERNAME")) return process.computerName();
  if (is("USERNAME")) return process.userName();
  if (is("TEMP") || is("TMP")) return process.systemFolder(SystemFolder::Temporary);
  if (is("SystemRoot") || is("windir")) return process.systemFolder(SystemFolder::System);
  if (is("USERPROFILE")) return setVariable("HOME", process);
  if (is("HOME")) return setVariable("USERPROFILE", process);
  return std::nullopt;
}

std::optional<std::string> find(std::string_view name, const Process& process) {
  auto value = setVariable(name, process);
  return value ? value : usualVariable(name, process);
}

}  // namespace

std::vector<std::string> commandWords(std::string_view line) {
  std::vector<std::string> words;
  bool inWord = false;
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool isEscaped = line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '"';
    const bool isBlank = line[i] == ' ' || line[i] == '\t';
    if (isBlank && !quoted) {
      inWord = false;
      continue;
    }
    if (!inWord) words.emplace_back();
    inWord = true;
    if (line[i] == '"') {
      quoted = !quoted;
    } else {
      words.back() += isEscaped ? line[++i] : line[i];
    }
  }
  return words;
}

std::string expanded(std::string_view text, const Services& services) {
  std::string result;
  while (!text.empty()) {
    const std::size_t start = text.find('%');
    result += text.substr(0, start);
    if (start == text.npos) break;
    text.remove_prefix(start + 1);
    const std::size_t end = text.find('%');
    const auto value =
        end == text.npos ? std::nullopt : find(text.substr(0, end), services.process);
    if (value) {
      result += *value;
      text.remove_prefix(end + 1);
    } else {
      result += '%';
    }
  }
  return result;
}

std::string variable(std::string_view name, const Services& services) {
  return find(name, services.process).value_or(std::string());
}

}  // namespace quorvane::shell
