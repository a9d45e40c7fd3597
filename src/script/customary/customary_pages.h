#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "components/page_context.h"
#include "http/clsHTTPParser.h"
#include "http/script_pages.h"
#include "script/customary/page.h"
#include "script/customary/page_store.h"
#include "script/customary/response_object.h"
#include "script/customary/site.h"
#include "script/objects/page_parts.h"
#include "script/run/page_host.h"
#include "script/run/page_run.h"

namespace quorvane::customary {

/// Runs pages of the customary dialect, one at a time, as aspMainParser runs those of the
/// default's.
class CustomaryPages final : public PageContext, public Page, public ResponseObject::Client {
 public:
  /// The services and the parts outlive this object; `shared` is what pages of both dialects share,
  /// and `keeping` makes the sessions.
  CustomaryPages(const Services& services, const PageParts& parts, vbs::Ref<SharedValues> shared,
                 Keeping& keeping, vbs::Limits limits);
  CustomaryPages(const CustomaryPages&) = delete;
  CustomaryPages& operator=(const CustomaryPages&) = delete;
  ~CustomaryPages();

  /// Whether the request's page is one of this dialect, as the setting has it.
  bool takes(const ScriptPageRequest& request) const;

  PageOutcome outcomeOf(const ScriptPageRequest& request);

  Site& site() { return site_; }

  std::string header(std::string_view name) const override;
  std::string_view body() const override;
  std::string folder() const override;
  void write(std::string_view bytes) override;

 private:
  struct Objects;

  void runWithSession(const PageStore::Program& page);
  void closeSession();
  void answerLost(const vbs::ScriptError& error);
  void prepare(const PageProgram& page, const SessionObject& session);
  void runRequest(const PageStore::Program& page);
  std::optional<PageError> runPage(const PageStore::Program& page, const std::string& path);
  PageError faultOf(const PageProgram::Fault& fault, std::int32_t codePage) const;
  std::int32_t codePageOf(const PageProgram& page) const;
  std::string headerLines();
  PageOutcome answer();
  void answerError(const PageError& error, const std::string& path);
  bool runErrorPage(const PageError& error, const std::string& path);

  std::int32_t codePage() const override { return codePage_; }
  void setCodePage(std::int32_t codePage) override { codePage_ = codePage; }
  bool isConnected() const override { return request_->events.isConnected(request_->socketIndex); }
  std::string localAddress() const override {
    return request_->events.localAddress(request_->socketIndex);
  }
  std::chrono::seconds timeLimit() const override { return run_.timeLimit(); }
  void setTimeLimit(std::chrono::seconds limit) override { run_.setTimeLimit(limit); }
  void execute(const std::string& target) override;
  [[noreturn]] void transfer(const std::string& target) override;
  PageError lastError() const override { return lastError_; }
  void send(std::string data, bool first) override;
  bool wantsBody() const override { return request_->parser.method() != "HEAD"; }

  Services services_;  ///< with this page as the one that runs
  const PageParts& parts_;
  PageHost host_;
  vbs::ProgramCache programs_;
  PageStore store_;
  Site site_;
  PageRun run_;

  const ScriptPageRequest* request_ = nullptr;
  Objects* objects_ = nullptr;  ///< of the run in progress
  bool mayUseSession_ = false;  ///< what has run so far, and what is still to run of it
  std::int32_t codePage_ = kAnsi;
  PageError lastError_;
  std::optional<PageError> inner_;  ///< of the innermost page, on its way out
};

}  // namespace quorvane::customary
