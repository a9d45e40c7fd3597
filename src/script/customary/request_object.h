#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "script/customary/name_values.h"
#include "script/customary/page.h"
#include "script/customary/request_collections.h"
#include "script/objects/header_variables.h"
#include "vbscript/values/object.h"

namespace quorvane {
class clsHTTPParser;
struct ServerState;
}  // namespace quorvane

namespace quorvane::customary {

/// What pages know as "Request". Made for one run; a page may keep it longer than that, so detach()
/// cuts it off from the request: nothing is there any more then.
class RequestObject final : public vbs::NativeObject<RequestObject> {
 public:
  /// All live until detach().
  RequestObject(const ServerState& state, const clsHTTPParser& request, const Page& page)
      : state_(state), request_(&request), page_(&page) {}

  void detach() { request_ = nullptr; }

  /// The value of a cookie as it came; nothing when there is none.
  std::optional<std::string> cookie(std::string_view name) const;

  std::string_view typeName() const override { return "Request"; }
  static std::span<const vbs::Member<RequestObject>> members();

 private:
  /// Who has read the body decides how: whole, or decoded as a form's.
  enum class Body { Unread, AsForm, AsBytes };

  const clsHTTPParser& request() const;
  ValueCollection& query();
  ValueCollection& form();
  const NameValues& cookies();
  vbs::String serverVariableText(std::string_view name);

  vbs::Value getQueryString(vbs::Args args);
  vbs::Value getQueryStringObject(vbs::Args args);
  vbs::Value getForm(vbs::Args args);
  vbs::Value getFormObject(vbs::Args args);
  vbs::Value getCookies(vbs::Args args);
  vbs::Value getCookiesObject(vbs::Args args);
  vbs::Value getServerVariables(vbs::Args args);
  vbs::Value getServerVariablesObject(vbs::Args args);
  vbs::Value getClientCertificate(vbs::Args args);
  vbs::Value getClientCertificateObject(vbs::Args args);
  vbs::Value getItem(vbs::Args args);
  vbs::Value getItemObject(vbs::Args args);
  vbs::Value getTotalBytes(vbs::Args);
  vbs::Value callBinaryRead(vbs::Args args);

  const ServerState& state_;
  const clsHTTPParser* request_;
  const Page* page_;
  std::optional<HeaderVariables> headers_;  ///< made on first use, as what follows
  vbs::Ref<ValueCollection> query_;
  vbs::Ref<ValueCollection> form_;
  std::optional<NameValues> cookies_;  ///< their values not decoded
  Body body_ = Body::Unread;
  std::size_t bodyRead_ = 0;  ///< bytes that BinaryRead has given out
};

}  // namespace quorvane::customary
