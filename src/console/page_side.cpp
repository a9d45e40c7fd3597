#include "console/page_side.h"

#include "script/running_scripts.h"

namespace quorvane {

namespace {

class PageSide final : public ScriptSide {
 public:
  PageSide(const ScriptSideParts& parts, Process& process)
      : scripts_({parts.state, parts.log, parts.clock, parts.files, parts.random, process,
                  parts.encoder, parts.aliases, parts.events}) {
    scripts_.application().setLanguage(&parts.texts);
  }

  ScriptPages& pages() override { return scripts_.pages(); }
  void expireSessions() override { scripts_.sessions().expire(); }
  void expireKeys() override { scripts_.authKeys().expire(); }
  void forgetKeys() override { scripts_.authKeys().clear(); }
  void forEachSession(const SessionVisitor& visit) const override {
    scripts_.sessions().forEach(
        [&](const aspSessionObj& session) { visit(session.SessionID(), session.OutOfDate()); });
  }

 private:
  mutable RunningScripts scripts_;
};

}  // namespace

MakeScriptSide pageSideMaker(Process& process) {
  return [&process](const ScriptSideParts& parts) {
    return std::make_unique<PageSide>(parts, process);
  };
}

}  // namespace quorvane
