#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "components/xml/tree.h"

namespace quorvane {
class ScriptFiles;
}

namespace quorvane::xml {

/// Why a document could not be read, as scripts see it.
struct ParseFault {
  std::int32_t code = 0;  ///< 0: there is none
  std::string reason;     ///< UTF-8
  std::string url;
  std::string sourceText;  ///< the line, UTF-8
  std::int32_t line = 0;
  std::int32_t column = 0;    ///< counted from 1
  std::int32_t position = 0;  ///< in the whole text
};

/// A fault that lies before all reading: of a file that is not there and so on.
enum class SourceFault : std::int32_t {
  NotFound = static_cast<std::int32_t>(0x800C0006),
  CannotConnect = static_cast<std::int32_t>(0x800C0005),
  NoData = static_cast<std::int32_t>(0x800C0007),
  AccessDenied = static_cast<std::int32_t>(0x80070005),
};
ParseFault sourceFault(SourceFault code, std::string url);

struct ParseOptions {
  bool preservesSpace = false;
  bool allowsType = true;                 ///< a document type declaration
  const ScriptFiles* external = nullptr;  ///< where external entities may stand; null: nowhere
};

struct Parsed {
  std::shared_ptr<Tree> tree;  ///< null when there is a fault
  ParseFault fault;
};

/// Reads a document. `encoding` says what its bytes are whatever the document says; null: it says
/// so itself.
Parsed parse(std::string_view bytes, const char* encoding, const std::string& url,
             const ParseOptions& options);

/// Reads what is UTF-8 whatever it says.
inline Parsed parseText(std::string_view text, const ParseOptions& options) {
  return parse(text, "UTF-8", {}, options);
}

}  // namespace quorvane::xml
