#pragma once

#include <string>
#include <string_view>

#include "components/script_files.h"

/// Copying, moving and deleting, as scripts ask for it: the last part of what is named may hold
/// wildcards; a target that ends in a separator is a folder that is there. Errors 53 and 76 for
/// what is missing, 58 for what is there already, 70 for what is not allowed.
namespace quorvane::file_moves {

void copyFiles(const ScriptFiles& files, std::string_view from, std::string_view to, bool replace);
void moveFiles(const ScriptFiles& files, std::string_view from, std::string_view to);
/// `force` deletes what is marked as read-only too.
void deleteFiles(const ScriptFiles& files, std::string_view from, bool force);

void copyFolders(const ScriptFiles& files, std::string_view from, std::string_view to,
                 bool replace);
void moveFolders(const ScriptFiles& files, std::string_view from, std::string_view to);
void deleteFolders(const ScriptFiles& files, std::string_view from, bool force);

}  // namespace quorvane::file_moves
