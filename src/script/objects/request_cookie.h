#pragma once

#include <memory>
#include <string_view>

#include "http/cookie_jar.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

class clsWEncode;

/// What `Request.Cookies(name)` gives: a copy of a cookie that came with the request. Changing it
/// changes nothing in the response.
class RequestCookie final : public vbs::NativeObject<RequestCookie> {
 public:
  /// `encoder` lives as long as the server.
  RequestCookie(clsCookieObj cookie, const clsWEncode& encoder)
      : cookie_(std::move(cookie)),
        encoder_(encoder),
        charge_(sizeof *this + cookie_.Value().size()) {}

  std::string_view typeName() const override { return "clsCookieObj"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the keys
  static std::span<const vbs::Member<RequestCookie>> members();

 private:
  vbs::Value getName(vbs::Args);
  vbs::Value getValue(vbs::Args args);
  void putValue(vbs::Args args, vbs::CallKind);
  vbs::Value getExpires(vbs::Args);
  void putExpires(vbs::Args args, vbs::CallKind);
  vbs::Value getHasKeys(vbs::Args);

  clsCookieObj cookie_;
  const clsWEncode& encoder_;
  vbs::MemoryCharge charge_;  ///< pages may hold many
};

}  // namespace quorvane
