#pragma once

#include <string>

#include "vbscript/values/string.h"

/// What scripts give for the head of a mail, as text that can stand there.
namespace quorvane::mail {

/// Many pages hold text as the bytes of their own character set, a character each. Where the text's
/// characters read as bytes make text of that set, that is what they are taken for.
std::u16string readAs(const vbs::String& text, const std::string& set);

/// `text` with a blank for each control character, line ends among them.
std::string oneLine(std::string text);

/// One line in UTF-8, as readAs() takes the text; encoded words in it are read.
std::string headerText(const vbs::String& text, const std::string& set);

}  // namespace quorvane::mail
