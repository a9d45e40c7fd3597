#pragma once

#include <string>

#include "components/mail/mail.h"
#include "platform/services.h"

namespace quorvane::mail {

/// The mail as it is sent, with CR LF line ends. Blind copies are not told. What scripts put into
/// addresses, subject and header lines never makes another line.
///
/// Many pages hold text as the bytes of their own character set, a character each. Where the text's
/// characters read as bytes make text of the mail's character set, that is what they are taken for.
std::string mimeText(const Mail& mail, const Services& services);

}  // namespace quorvane::mail
