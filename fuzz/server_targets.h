#pragma once

#include <string_view>

namespace quorvane {

/// What one client or several send to a running server, its network, clock and files replaced by
/// fakes. `\x1E` ends a piece as it arrives, `\x1C` a client. Ends the process when something is
/// wrong: an answer that is none, a file from outside the document root, a server that serves
/// nobody afterwards.
void fuzzRequests(std::string_view bytes);

/// The same of a server with customary addresses, which keeps some files of its document root to
/// itself.
void fuzzAddresses(std::string_view bytes);

/// The same of a server that keeps to the standard. What it sends is answers one behind the other.
void fuzzStandard(std::string_view bytes);

/// A page of any bytes, asked for twice within one session, by a query and by a form.
void fuzzPage(std::string_view page);

/// The same of a page in the customary dialect, on a site whose global.asa is the page as well.
void fuzzCustomaryPage(std::string_view page);

}  // namespace quorvane
