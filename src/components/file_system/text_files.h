#pragma once

#include <cstdint>

#include "components/script_files.h"
#include "vbscript/values/value.h"

/// Text files as scripts open them. Lines are written with CR LF, whatever the system.
namespace quorvane::text_files {

enum IoMode : std::int32_t { kForReading = 1, kForWriting = 2, kForAppending = 8 };

/// What a file holds, as scripts give it.
enum Format : std::int32_t { kAnsi = 0, kUnicode = -1, kDefault = -2 };

/// A stream over a file that is there, or is made when `create` says so. Error 53 when it is not,
/// 76 when its folder is not, 70 when it can't be opened, 5 for a mode that is none.
vbs::Value open(const Files& files, const std::string& path, std::int32_t mode, bool create,
                std::int32_t format);

/// A stream over a new file, or an emptied one when `replace` says so, else error 58.
vbs::Value create(const Files& files, const std::string& path, bool replace, bool unicode);

}  // namespace quorvane::text_files
