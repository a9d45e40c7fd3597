#pragma once

#include <string>
#include <string_view>

#include "support/calendar_time.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane {

class CookieJar;
class clsCookieObj;
class clsWEncode;

/// What `Response.Cookies(name)` gives: a write-only handle that records a cookie for the response
/// in the jar. Nothing is recorded with an empty name, nor what is so large or so many that it
/// could only fill the memory.
class clsWCookie final : public vbs::NativeObject<clsWCookie> {
 public:
  /// Both live as long as the server.
  clsWCookie(const clsWEncode& encoder, CookieJar& jar, std::string name)
      : encoder_(encoder),
        jar_(jar),
        name_(std::move(name)),
        charge_(sizeof *this + name_.size()) {}

  void setValue(std::string_view value);  ///< stored URL-encoded
  /// Keeps the other keys that were set for this response.
  void setKey(std::string key, std::string value);
  void setExpires(const CalendarTime& when);

  std::string_view typeName() const override { return "clsWCookie"; }
  static std::span<const vbs::Member<clsWCookie>> members();

 private:
  void putValue(vbs::Args args, vbs::CallKind);
  void putExpires(vbs::Args args, vbs::CallKind);
  void putPath(vbs::Args args, vbs::CallKind);
  void putDomain(vbs::Args args, vbs::CallKind);
  void putSecure(vbs::Args args, vbs::CallKind);
  clsCookieObj* held();  ///< the jar's cookie, made when there is none; null: not to be recorded

  const clsWEncode& encoder_;
  CookieJar& jar_;
  std::string name_;
  vbs::MemoryCharge charge_;  ///< pages may hold many
};

}  // namespace quorvane
