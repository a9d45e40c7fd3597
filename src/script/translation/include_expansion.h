#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

class Files;
class TextOrigins;

/// A file as pages include it.
struct IncludedFile {
  std::string path;  ///< as the file system spells it
  std::string text;
};

/// Replaces the include directives of a page by the files they name:
///
///     <!-- #include file="parts/head.inc" -->
///
/// Expansion stops at the first HTML comment that is no such directive, so that a plain comment
/// switches off every directive behind it; pages use this. Included files may include others,
/// named from the folder of the outer page.

/// The include file with this name (always in lower-case ASCII letters), its text empty when it
/// can't be read; nothing when there is no such file.
using IncludeReader = std::function<std::optional<IncludedFile>(const std::string& name)>;

/// `source` with its directives replaced. A missing file, or files that include themselves without
/// end, give a one-line message in place of the page. A line may end with CR LF or one of the two.
/// Takes time in proportion to the text it reads, whatever that text is. `origins`, if any, begin
/// with the source and end with what comes back.
std::string expandIncludes(std::string source, const IncludeReader& read,
                           TextOrigins* origins = nullptr);

/// Reads the include file `name` for a page in `folder`. It must lie below the document root or,
/// of a page that is outside, below the page's folder; ".." parts may lead there, and symbolic
/// links elsewhere if they may be followed.
std::optional<IncludedFile> readInclude(const Files& files, std::string_view root,
                                        std::string_view folder, std::string_view name,
                                        bool followLinks);

}  // namespace quorvane
