#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// Readers of what others have written, each with any bytes. All end the process when something is
/// wrong: a view of something else, an answer that depends on how the bytes arrived, a change that
/// reaches further than it was told to.

/// The head of a request, read whole and put together from pieces cut at several places.
void fuzzHead(std::string_view bytes);

/// Requests by the standard, one behind the other, read whole and put together from pieces.
void fuzzMessages(std::string_view bytes);

/// Those requests; in place of one that is refused, the last then, its method if that is HEAD, and
/// why.
std::vector<std::string> standardMessages(std::string_view bytes);

/// A file of server settings, read, told about and written to.
void fuzzSettings(std::string_view bytes);

/// A resource module; then a sound module with the bytes as the record of a file.
void fuzzModule(std::string_view bytes);

/// A picture file, as a bitmap, as a GIF, and as others whose heads are read.
void fuzzPicture(std::string_view bytes);

/// The body of a form with files, its boundary in the first line, whole and in pieces.
void fuzzForm(std::string_view bytes);

/// Datagrams of the control channel, `\x1E` between them.
void fuzzControl(std::string_view bytes);

}  // namespace quorvane
