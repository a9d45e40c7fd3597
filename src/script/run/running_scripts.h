#pragma once

#include "components/ado/database_pool.h"
#include "components/application.h"
#include "http/script_pages.h"
#include "platform/services.h"
#include "script/customary/customary_pages.h"
#include "script/run/aspMainParser.h"
#include "script/run/keeping.h"

namespace quorvane {

class FileAliases;

/// The script pages of one running server with what they keep between requests: sessions,
/// authorisation keys, shared values, connections to databases. All of it is gone when the server
/// stops, but for what stands in a store that several servers share.
class RunningScripts final : public ScriptPages {
 public:
  struct Parts {
    const clsWEncode& encoder;
    FileAliases& aliases;
    const LanguageTexts& texts;
  };

  /// The services and the parts outlive this object.
  RunningScripts(const Services& services, const Parts& parts, vbs::Limits limits = {});
  RunningScripts(const RunningScripts&) = delete;
  RunningScripts& operator=(const RunningScripts&) = delete;

  ScriptPageResult run(const ScriptPageRequest& request) override;

  /// Sessions that are out of date end.
  void expireSessions();

  SessionStore& sessions() { return *sessions_; }
  ado::DatabasePool& databases() { return databases_; }
  AuthKeys& authKeys() { return *authKeys_; }
  ApplicationComponent& application() { return *application_; }

 private:
  ScriptPageResult runPage(const ScriptPageRequest& request);

  ado::DatabasePool databases_;
  Services services_;  ///< with the running page and the databases
  std::unique_ptr<Keeping> keeping_;
  std::unique_ptr<AuthKeys> authKeys_;
  std::unique_ptr<SessionStore> sessions_;
  vbs::Ref<ApplicationComponent> application_;
  PageParts parts_;
  aspMainParser vbsParser_;
  customary::CustomaryPages customary_;
};

}  // namespace quorvane
