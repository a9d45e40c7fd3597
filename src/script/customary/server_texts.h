#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/services.h"
#include "vbscript/values/string.h"

/// What "Server" makes of texts.
namespace quorvane::customary {

/// For HTML's text and quoted attributes: "&", "<", ">" and the double quote by name and, where
/// the page's character set may lack them, all characters from 160 on by number.
vbs::String htmlEncoded(const vbs::String& text, std::int32_t codePage);

/// For a URL's query: ASCII letters and digits as they are, "+" for a blank, "%XX" for the bytes of
/// all else in the page's character set.
vbs::String urlEncoded(const vbs::String& text, std::int32_t codePage);

/// The file or folder that a page names, as seen from `folder` or, with a separator in front, from
/// the document root: in the system's own style, what is there of it in the file system's own
/// spelling. Nothing when it leads out of the root or can't be a path. A separator at the end
/// stays.
std::optional<std::string> mappedPath(const Services& services, std::string_view folder,
                                      std::string_view path);

/// The bytes of a file's name as a page wrote it: UTF-8, as the system has them, or where the page
/// is no UTF-8 and has nothing but bytes, these. Cut off where no path is that long.
std::string nameBytes(const vbs::String& name, std::int32_t codePage);

}  // namespace quorvane::customary
