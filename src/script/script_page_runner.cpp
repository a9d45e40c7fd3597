#include "script/script_page_runner.h"

#include <utility>

#include "http/clsHTTPParser.h"

namespace quorvane {

ScriptPageResult ScriptPageRunner::run(const ScriptPageRequest& request) {
  const std::int32_t asked = request.parser.SessionID();
  vbsParser_.Reset();
  vbsParser_.setSocketIndex(request.socketIndex);
  vbsParser_.setURL(request.url);
  vbsParser_.setFileData(request.fileData);
  vbsParser_.setRequest(request.parser, request.cookies);
  vbsParser_.setSession(sessions_.getOrCreate(asked));
  vbsParser_.Run();

  ScriptPageResult result;
  result.responseHeader = vbsParser_.ResponseHeader();
  result.flushedResponse = vbsParser_.FlushedResponse();
  result.sessionNumber = vbsParser_.Session()->SessionID();
  result.output = vbsParser_.takeOutput();
  // A page that gives its session another number loses it: the client will ask by the new one,
  // under which nothing is held.
  if (result.sessionNumber != asked) sessions_.remove(asked);
  vbsParser_.Reset();
  return result;
}

}  // namespace quorvane
