#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quorvane {

/// Header lines of answers as text, separated by CR LF, no line end behind the last.
namespace header_lines {

/// Writes "name: value" in one line whatever a page or a client has brought: CR, LF and NUL become
/// blanks. Every header line that the server sends is made here.
void write(std::string& text, std::string_view name, std::string_view value);

/// The same for words of the server's own alone, which are taken as they are.
void writeOwn(std::string& text, std::string_view name, std::string_view value);

/// Add a line behind others.
void add(std::string& lines, std::string_view name, std::string_view value);
void addOwn(std::string& lines, std::string_view name, std::string_view value);

/// The cookie that carries a session's number: its name, and the value of the line that sets it.
inline constexpr std::string_view kSessionCookie = "QVS_SESSIONID";
std::string sessionCookie(std::int32_t number);

/// The text with CR, LF and NUL turned into blanks.
std::string oneLine(std::string_view text);

/// The lines but those of the headers named, in lower case.
std::string without(std::string_view lines, std::span<const std::string_view> names);

/// Whether the lines bring that header: whether its name, a colon and a blank stand anywhere in
/// them, letter case aside. `name` is in lower case.
bool bring(std::string_view lines, std::string_view name);

}  // namespace header_lines

}  // namespace quorvane
