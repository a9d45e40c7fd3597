#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "script/customary/page.h"
#include "script/customary/session.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// What pages know as "Session". Made for one run. It stands for a session that need not be there
/// yet: the first use of any member begins one. A page may keep the object longer than the run, so
/// detach() cuts it off.
class SessionObject final : public vbs::NativeObject<SessionObject> {
 public:
  using Begin = std::function<std::shared_ptr<Session>()>;  ///< never gives null

  /// `session` may be null. `page` and what `begin` needs must live until detach().
  SessionObject(Page& page, std::shared_ptr<Session> session, Begin begin)
      : page_(&page), session_(std::move(session)), begin_(std::move(begin)) {}

  void detach();  ///< session() and isNew() tell the runner the same afterwards

  /// For pages that declare to have no session: every use is an error.
  void refuse() { refused_ = true; }
  bool isRefused() const { return refused_; }

  /// The session, begun when there was none.
  Session& begin();
  /// Null when none has been begun.
  const std::shared_ptr<Session>& session() const { return session_; }
  /// Whether the browser does not know of the session yet.
  bool isNew() const { return isNew_; }

  std::string_view typeName() const override { return "Session"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the names of its values
  static std::span<const vbs::Member<SessionObject>> members();

 private:
  Page& page() const;
  vbs::Value getValue(vbs::Args args);
  void putValue(vbs::Args args, vbs::CallKind kind);
  vbs::Value getContents(vbs::Args args);
  void putContents(vbs::Args args, vbs::CallKind kind);
  vbs::Value getStaticObjects(vbs::Args args);
  vbs::Value getSessionID(vbs::Args);
  vbs::Value getTimeout(vbs::Args);
  void putTimeout(vbs::Args args, vbs::CallKind);
  vbs::Value getLcid(vbs::Args);
  void putLcid(vbs::Args args, vbs::CallKind);
  vbs::Value getCodePage(vbs::Args);
  void putCodePage(vbs::Args args, vbs::CallKind);
  vbs::Value callAbandon(vbs::Args);

  Page* page_;
  std::shared_ptr<Session> session_;
  Begin begin_;
  bool isNew_ = false;
  bool refused_ = false;
};

}  // namespace quorvane::customary
