#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

class clsHTTPParser;
class CookieJar;

/// One run of a script page. The references live as long as the run.
struct ScriptPageRequest {
  std::string url;       ///< local file path of the page
  std::string fileData;  ///< the page's text when it came from a resource module, else empty
  clsHTTPParser& parser;
  CookieJar& cookies;
  int socketIndex;  ///< the slot that flushed output goes to
};

struct ScriptPageResult {
  std::string output;
  std::string responseHeader;      ///< lines the script set, separated by CR LF
  bool flushedResponse = false;    ///< the head and the first part were sent during the run
  std::int32_t sessionNumber = 0;  ///< the session's number after the run
};

/// How request handling reaches script pages without knowing the script engine. The
/// implementation finds or makes the session that the parser's `SessionID` names, runs the page
/// with it, and drops the session asked for when the page has one of another number in the end.
class ScriptPages {
 public:
  virtual ~ScriptPages() = default;
  virtual ScriptPageResult run(const ScriptPageRequest& request) = 0;
};

}  // namespace quorvane
