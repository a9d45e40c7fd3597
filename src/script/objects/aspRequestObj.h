#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "http/clsHTTPParser.h"
#include "script/objects/header_variables.h"
#include "vbscript/values/object.h"

namespace quorvane {

class CookieJar;
class clsWEncode;
struct ServerState;

/// What pages know as "Request": read access to the parsed request. Made for one run; a page may
/// keep it longer than that, so detach() cuts it off from the request. Without a request every
/// member is the empty text.
class aspRequestObj final : public vbs::NativeObject<aspRequestObj> {
 public:
  /// Both live as long as the server.
  aspRequestObj(const ServerState& state, const clsWEncode& encoder)
      : state_(state), encoder_(encoder) {}

  /// Both must live until detach().
  void attach(const clsHTTPParser& request, CookieJar& cookies);
  void detach();

  /// A member that gives what the request has under a name.
  using Item = vbs::Value (aspRequestObj::*)(vbs::Args);

  std::string_view typeName() const override { return "Request"; }
  static std::span<const vbs::Member<aspRequestObj>> members();
  static constexpr std::size_t kGlobalMembers = 4;  ///< the first rows of members()

 private:
  vbs::Value variable(vbs::Args args, std::int32_t source, const std::string& withoutName) const;
  vbs::Value getQueryString(vbs::Args args);
  vbs::Value getForm(vbs::Args args);
  vbs::Value getDefault(vbs::Args args);
  vbs::Value getQueryStringObject(vbs::Args args);
  vbs::Value getFormObject(vbs::Args args);
  vbs::Value getDefaultObject(vbs::Args args);
  vbs::Value variables(vbs::Args args, clsHTTPParser::Source source, Item item);
  vbs::Value getCookies(vbs::Args args);
  vbs::Value getServerVariables(vbs::Args args);
  vbs::Value collection(Item item, std::vector<std::string> names);
  const HeaderVariables& headers();
  vbs::Value getTotalBytes(vbs::Args);
  vbs::Value callBinaryRead(vbs::Args args);
  std::string_view body() const;

  const ServerState& state_;
  const clsWEncode& encoder_;
  const clsHTTPParser* request_ = nullptr;
  CookieJar* cookies_ = nullptr;
  std::optional<HeaderVariables> headers_;  ///< made on first use
  std::size_t bodyRead_ = 0;                ///< bytes that BinaryRead has given out
};

}  // namespace quorvane
