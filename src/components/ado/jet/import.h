#pragma once

#include <string>

namespace quorvane {
struct Services;
}

/// Access files as scripts open them: each is read once into an SQLite file that lies beside it,
/// and again when it is newer than what that was made of. The file itself is left as it is.
namespace quorvane::ado::jet {

/// "news.mdb" has its copy in "news.sqlite.mdb": what keeps files of this kind from visitors keeps
/// the copy from them too.
std::string copyPathOf(const std::string& path);

/// Makes the copy anew, whether there is one or not; the one that was there is kept beside it.
/// Progress and result go to the status lines. Returns why that failed, or nothing. Ends with the
/// script's time.
std::string importFile(const Services& services, const std::string& path);

/// The same unless there is a copy that is not older.
std::string importIfNeeded(const Services& services, const std::string& path);

}  // namespace quorvane::ado::jet
