#pragma once

#include <string>
#include <string_view>

/// What scripts ask about the text of a path, whether anything has that name or not. Both
/// separators count; separators at the end don't.
namespace quorvane::path_text {

std::string_view nameOf(std::string_view path);  ///< the last part; empty for a root
/// Everything before the last part, without a separator at its end unless it is a root.
std::string_view parentOf(std::string_view path);
std::string_view baseNameOf(std::string_view path);   ///< the name up to its last dot
std::string_view extensionOf(std::string_view path);  ///< the name behind its last dot
std::string_view driveOf(std::string_view path);      ///< "c:", or nothing

/// `folder` and `name` with one separator between, of the kind that the folder has.
std::string joined(std::string_view folder, std::string_view name);

bool hasWildcards(std::string_view name);
/// Whether a name is as a pattern with "*" and "?" says, in any letter case.
bool matches(std::string_view name, std::string_view pattern);

}  // namespace quorvane::path_text
