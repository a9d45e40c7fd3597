#pragma once

#include <string_view>

#include "http/cookie_jar.h"
#include "vbscript/object.h"

/// What `Request.Cookies(name)` gives: a copy of a cookie that came with the request. Changing it
/// changes nothing in the response.
class RequestCookie final : public vbs::NativeObject<RequestCookie> {
 public:
  explicit RequestCookie(clsCookieObj cookie) : cookie_(std::move(cookie)) {}

  std::string_view typeName() const override { return "clsCookieObj"; }
  static std::span<const vbs::Member<RequestCookie>> members();

 private:
  vbs::Value getName(vbs::Args);
  vbs::Value getValue(vbs::Args);
  void putValue(vbs::Args args, vbs::CallKind);
  vbs::Value getExpires(vbs::Args);
  void putExpires(vbs::Args args, vbs::CallKind);

  clsCookieObj cookie_;
};
