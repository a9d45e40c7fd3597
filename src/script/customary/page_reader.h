#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "script/customary/page_program.h"
#include "script/translation/include_expansion.h"

namespace quorvane::customary {

/// The file that an include of `from`, a local path, names; `isVirtual`: from the document root on.
/// Nothing when there is no such file.
using IncludeReader = std::function<std::optional<IncludedFile>(
    const std::string& from, const std::string& name, bool isVirtual)>;

/// Turns a page into one program:
///
///     <%@ Language=VBScript CodePage=65001 %>          directive, once
///     <!-- #include virtual="/parts/head.inc" -->      anywhere outside of <% %>
///     <% code %>  <%= expression %>
///     <script language="vbscript" runat="server">code</script>
///     <object runat="server" progid="..." id="..."></object>
///     <!-- METADATA TYPE="typelib" ... -->
///
/// Everything else is text, to the last line end. "%>" ends code wherever it stands, inside a
/// string as well. Each file is read as a page of its own: what it begins it also ends. A file
/// that begins with a byte order mark is read in the set that the mark names; so is the page whose
/// directive names none.
///
/// `codePage` is for a page that names none. Whatever the text, there is a program or a fault.
PageProgram readPage(const std::string& path, std::string_view text, std::int32_t codePage,
                     const IncludeReader& include);

/// The same of a file whose text outside of script blocks means nothing; a directive names their
/// code page and language.
PageProgram readScriptBlocks(const std::string& path, std::string_view text, std::int32_t codePage,
                             const IncludeReader& include);

/// Whether a directive is the first of a page.
bool beginsWithDirective(std::string_view text);

}  // namespace quorvane::customary
