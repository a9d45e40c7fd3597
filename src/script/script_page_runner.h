#pragma once

#include "http/script_pages.h"
#include "script/aspMainParser.h"
#include "script/session_store.h"

namespace quorvane {

/// Runs script pages for request handling, each with its session.
class ScriptPageRunner final : public ScriptPages {
 public:
  /// Both outlive the runner.
  ScriptPageRunner(aspMainParser& vbsParser, SessionStore& sessions)
      : vbsParser_(vbsParser), sessions_(sessions) {}

  ScriptPageResult run(const ScriptPageRequest& request) override;

 private:
  aspMainParser& vbsParser_;
  SessionStore& sessions_;
};

}  // namespace quorvane
