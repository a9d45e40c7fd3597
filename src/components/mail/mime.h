#pragma once

#include <string>

#include "components/mail/mail.h"
#include "platform/services.h"

namespace quorvane::mail {

/// The mail as it is sent, with CR LF line ends. Blind copies are not told. What scripts put into
/// addresses, subject and header lines never makes another line; a header line of theirs stands in
/// the place of one that would be made. Texts are taken as readAs() takes them.
std::string mimeText(const Mail& mail, const Services& services);

}  // namespace quorvane::mail
