#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "components/page_context.h"
#include "http/script_pages.h"
#include "script/customary/page.h"
#include "script/objects/aspServerObj.h"
#include "script/objects/page_parts.h"
#include "script/run/page_host.h"
#include "script/run/page_run.h"
#include "script/sessions/aspSessionObj.h"
#include "script/translation/include_expansion.h"
#include "vbscript/engine.h"

namespace quorvane {

class aspResponseObj;

/// Translates and runs pages, one at a time. The server's window knows it as `vbsParser`.
class aspMainParser final : public PageContext, private aspServerObj::Page {
 public:
  /// A page's run time and memory are bounded by `limits`; what it writes counts as well.
  /// The services and the parts outlive the parser.
  aspMainParser(const Services& services, const PageParts& parts, vbs::Limits limits = {});
  ~aspMainParser() override;

  /// One page for one request: everything below, from one Reset() to the next.
  PageOutcome outcomeOf(const ScriptPageRequest& request, vbs::Ref<aspSessionObj> session);

  /// Must live until Reset().
  void setRequest(const ScriptPageRequest& request) { request_ = &request; }

  const std::string& URL() const { return url_; }
  void setURL(std::string path);  ///< local file of the page; its folder resolves includes

  /// The page's own text, in place of the file at URL().
  void setFileData(std::string text) { fileData_ = std::move(text); }

  /// Left empty, a run makes a session of its own.
  void setSession(vbs::Ref<aspSessionObj> session) { session_ = std::move(session); }
  const vbs::Ref<aspSessionObj>& Session() const { return session_; }

  std::int32_t SocketIndex() const { return socketIndex_; }  ///< -1: flushed output goes nowhere
  void setSocketIndex(std::int32_t index) { socketIndex_ = index; }

  /// False when the page failed; the output is then the error page. A request must be set.
  bool Run();

  const std::string& Output() const { return output_; }
  const std::string& ResponseHeader() const { return responseHeader_; }
  bool FlushedResponse() const { return flushedResponse_; }

  void Reset();

  /// The whole file, a character for each byte; empty when it can't be read.
  std::string strReadFile(const std::string& path) const;
  /// The whole file, two bytes a character, the lower first; a zero follows an odd last one.
  std::u16string binReadFile(const std::string& path) const;
  /// True only when the file holds exactly `data` afterwards.
  bool strWriteFile(const std::string& path, std::string_view data) const;
  bool fileExists(const std::string& path) const;

  std::string header(std::string_view name) const override;
  std::string_view body() const override;
  std::string folder() const override;
  void write(std::string_view bytes) override;

 private:
  struct Published;

  PageOutcome takeOutcome();
  std::optional<vbs::ErrorReport> runProgram(const std::string& program, const std::string& folder);
  void keepSession(std::optional<vbs::ErrorReport>& error);
  std::string source() const;
  std::string translate(std::string source, const std::string& folder) const;
  IncludeReader includesOf(const std::string& folder) const;  ///< as long as `folder` lives
  void noteFailure(const std::string& path, const std::string& folder,
                   const vbs::ErrorReport& error);
  std::optional<std::string> pageFile(std::string_view target) const;
  void fail(const vbs::ErrorReport& error);

  void objResponse_FlushBuffer(std::string rspData, const std::string& rspHeaderData,
                               bool rspFirstFlush);
  void objServer_DebugOutput(const std::string& dbgData) override;
  void execute(const std::string& target) override;
  std::chrono::seconds timeLimit() const override;
  void setTimeLimit(std::chrono::seconds limit) override;
  void endPage() override;

  const Services& services_;
  const PageParts& parts_;
  PageHost host_;
  vbs::ProgramCache programs_;
  PageRun run_;

  std::string url_;
  std::string pageFolder_;
  std::string fileData_;
  const ScriptPageRequest* request_ = nullptr;
  vbs::Ref<aspSessionObj> session_;
  std::int32_t socketIndex_ = -1;

  Published* published_ = nullptr;  ///< the objects of the run in progress
  std::string output_;
  std::string responseHeader_;
  bool flushedResponse_ = false;
  std::optional<customary::PageError> failure_;  ///< of the innermost page, for the log
  bool failed_ = false;
  bool redirectedTo_ = false;  ///< the page itself named the local file that its output leads to
};

}  // namespace quorvane
