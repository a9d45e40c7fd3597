#pragma once

#include <string>
#include <string_view>

#include "platform/services.h"
#include "script/customary/page.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// What pages know as "Server". Made for one run. A page may keep it longer than that, so detach()
/// cuts it off from the run.
class ServerObject final : public vbs::NativeObject<ServerObject> {
 public:
  /// `services` outlive the object, `page` must live until detach().
  ServerObject(const Services& services, Page& page) : services_(services), page_(&page) {}

  void detach() { page_ = nullptr; }

  std::string_view typeName() const override { return "Server"; }
  static std::span<const vbs::Member<ServerObject>> members();

 private:
  Page& page() const;

  vbs::Value callMapPath(vbs::Args args);
  vbs::Value callCreateObject(vbs::Args args);
  vbs::Value callHTMLEncode(vbs::Args args);
  vbs::Value callURLEncode(vbs::Args args);
  vbs::Value callExecute(vbs::Args args);
  vbs::Value callTransfer(vbs::Args args);
  vbs::Value callGetLastError(vbs::Args);
  vbs::Value getScriptTimeout(vbs::Args);
  void putScriptTimeout(vbs::Args args, vbs::CallKind);

  const Services& services_;
  Page* page_;
};

}  // namespace quorvane::customary
