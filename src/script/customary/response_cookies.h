#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/customary/page.h"
#include "support/calendar_time.h"
#include "support/keyed_collection.h"
#include "vbscript/values/memory_meter.h"
#include "vbscript/values/object.h"

namespace quorvane::customary {

/// A cookie as a page sets it. Texts are bytes of the page's code page.
struct SetCookie {
  std::string name;  ///< in the page's own spelling
  std::string value;
  KeyedCollection<std::string> keys;    ///< in place of the value when there are any
  std::optional<CalendarTime> expires;  ///< UTC
  std::string domain;
  std::string path = "/";  ///< pages write further attributes behind it
  bool secure = false;
  bool httpOnly = false;

  std::string headerLine() const;
};

/// The cookies that one answer sets, in the order in which they were first named. Browsers keep
/// some 4 KiB of each and some hundred of a site; what goes far beyond is refused.
class SetCookies {
 public:
  /// The cookie of that name, letter case aside, added when it is new.
  SetCookie& named(std::string_view name);
  const std::vector<std::unique_ptr<SetCookie>>& all() const { return cookies_; }
  void clear();

  /// Counts `bytes` more that a page wants kept in a cookie.
  void charge(std::size_t bytes);

 private:
  std::vector<std::unique_ptr<SetCookie>> cookies_;
  vbs::MemoryCharge charge_{0};
};

/// One of them as pages write it. Made for one use; a page may keep it longer than the answer
/// lives, so it goes by the name.
class ResponseCookie final : public vbs::NativeObject<ResponseCookie> {
 public:
  /// Null when the answer is gone.
  using Owner = std::shared_ptr<SetCookies*>;

  ResponseCookie(Owner cookies, std::string name, std::int32_t codePage)
      : cookies_(std::move(cookies)), name_(std::move(name)), codePage_(codePage) {}

  void set(vbs::Args args);  ///< perhaps a key, and the value

  std::string_view typeName() const override { return "IWriteCookie"; }
  static std::span<const vbs::Member<ResponseCookie>> members();

 private:
  SetCookies& cookies() const;
  SetCookie& cookie() const { return cookies().named(name_); }
  std::string textOf(const vbs::Value& value) const;
  vbs::Value getValue(vbs::Args args);
  void putValue(vbs::Args args, vbs::CallKind) { set(args); }
  vbs::Value getHasKeys(vbs::Args);
  void putExpires(vbs::Args args, vbs::CallKind);
  void putDomain(vbs::Args args, vbs::CallKind);
  void putPath(vbs::Args args, vbs::CallKind);
  void putSecure(vbs::Args args, vbs::CallKind);
  void putHttpOnly(vbs::Args args, vbs::CallKind);

  Owner cookies_;
  std::string name_;
  std::int32_t codePage_;
};

/// `Response.Cookies` without a name.
class ResponseCookies final : public vbs::NativeObject<ResponseCookies> {
 public:
  ResponseCookies(ResponseCookie::Owner cookies, std::int32_t codePage)
      : cookies_(std::move(cookies)), codePage_(codePage) {}

  std::string_view typeName() const override { return "IRequestDictionary"; }
  std::unique_ptr<vbs::Enumerator> enumerate() override;  ///< the names
  static std::span<const vbs::Member<ResponseCookies>> members();

 private:
  const SetCookies& cookies() const;
  vbs::Value getItem(vbs::Args args);
  void putItem(vbs::Args args, vbs::CallKind);
  vbs::Value getCount(vbs::Args);
  vbs::Value getKey(vbs::Args args);

  ResponseCookie::Owner cookies_;
  std::int32_t codePage_;
};

}  // namespace quorvane::customary
