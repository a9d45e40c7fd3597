#pragma once

#include "components/application.h"
#include "http/response_heads.h"
#include "http/script_pages.h"
#include "script/aspMainParser.h"
#include "script/auth_keys.h"
#include "script/session_store.h"

namespace quorvane {

class FileAliases;
class StatusLines;

/// The script pages of one running server with what they keep between requests: sessions,
/// authorisation keys, shared values. All of it is gone when the server stops.
class RunningScripts final : public ScriptPages {
 public:
  /// Everything outlives this object.
  struct Parts {
    const ServerState& state;
    StatusLines& log;
    const Clock& clock;
    const Files& files;
    Random& random;
    Process& process;
    const clsWEncode& encoder;
    FileAliases& aliases;
    const LanguageTexts& texts;
  };

  explicit RunningScripts(const Parts& parts, vbs::Limits limits = {});
  RunningScripts(const RunningScripts&) = delete;
  RunningScripts& operator=(const RunningScripts&) = delete;

  ScriptPageResult run(const ScriptPageRequest& request) override;

  SessionStore& sessions() { return sessions_; }
  AuthKeys& authKeys() { return authKeys_; }
  ApplicationComponent& application() { return *application_; }

 private:
  ResponseHeads heads_;
  AuthKeys authKeys_;
  SessionStore sessions_;
  vbs::Ref<ApplicationComponent> application_;
  PageServices services_;
  aspMainParser vbsParser_;
};

}  // namespace quorvane
