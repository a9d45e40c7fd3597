#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace quorvane {

class AnswerStream;
class clsHTTPParser;
class CookieJar;

/// What a running page tells the server's window, which holds the pages' runner as `vbsParser`.
class PageEvents {
 public:
  virtual ~PageEvents() = default;
  virtual void vbsParser_DebugOutput(const std::string& dbgData) = 0;
  /// Bytes ready for the wire of the connection in that slot. Pages flush with `CloseOpenSocket`
  /// false. False when the client takes nothing of what it gets while others wait: the page ends.
  virtual bool vbsParser_Dispatch(std::int32_t SocketIndex, std::string Data,
                                  bool CloseOpenSocket) = 0;
  /// Whether the slot's client still waits for its answer. Asking costs a system call.
  virtual bool isConnected(std::int32_t) const { return true; }
  /// This machine's address that the slot's client has come to; empty when it is not known.
  virtual std::string localAddress(std::int32_t) const { return {}; }
};

/// One run of a script page. References and views live as long as the run.
struct ScriptPageRequest {
  std::string url;            ///< local file path of the page
  std::string_view fileData;  ///< the page's text when it came from a resource module, else empty
  clsHTTPParser& parser;
  CookieJar& cookies;
  PageEvents& events;
  AnswerStream& stream;      ///< frames what the page flushes, for the events to dispatch
  std::int32_t socketIndex;  ///< the slot that flushed output goes to
};

/// A page that ended, or failed: then the body is the error page.
struct FinishedPage {
  std::string header;  ///< lines the page set, separated by CR LF
  std::string body;
  bool failed = false;
};

/// A page that names another file to serve in its place.
struct RedirectedPage {
  enum class Kind {
    Url,        ///< from the document root on, perhaps with a query string
    LocalFile,  ///< a complete local path
  };
  Kind kind = Kind::Url;
  std::string target;
  /// The page's own code named the target. Otherwise it stood in what the page wrote, which may be
  /// anybody's text, and leads to nothing outside the document root.
  bool mayLeaveRoot = false;
};

/// A page that said itself with what status and lines it goes out. Its session, if any, is its own
/// affair: the server adds no line of a session or cookie.
struct AnsweredPage {
  std::string status;       ///< number and text: "302 Object moved"
  std::string headerLines;  ///< of the page alone, its content type among them; separated by CR LF
  std::string body;         ///< not sent with a status that has none
};

/// A page that sent the head and its first part while it ran.
struct FlushedPage {
  std::string rest;
};

using PageOutcome = std::variant<FinishedPage, RedirectedPage, AnsweredPage, FlushedPage>;

struct ScriptPageResult {
  PageOutcome outcome;
  std::int32_t sessionNumber = 0;  ///< the session's number after the run; 0 of an answered page
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
