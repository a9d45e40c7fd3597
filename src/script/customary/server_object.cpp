#include "script/customary/server_object.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "components/component_error.h"
#include "components/components.h"
#include "script/customary/error_object.h"
#include "script/customary/server_texts.h"
#include "script/objects/aspServerObj.h"
#include "support/files.h"
#include "vbscript/values/convert.h"

namespace quorvane::customary {

namespace {

/// The number of all errors of this object's own.
constexpr auto kServerError = static_cast<std::int32_t>(0x80004005);

/// A value that can't be a text is a mismatch here, Null included.
vbs::String textOf(const vbs::Value& value) {
  vbs::Value plain = vbs::plainValue(value);
  if (plain.isNull()) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  return vbs::toString(plain);
}

}  // namespace

Page& ServerObject::page() const {
  if (!page_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *page_;
}

std::span<const vbs::Member<ServerObject>> ServerObject::members() {
  using Self = ServerObject;
  static constexpr std::array<vbs::Member<Self>, 8> kMembers{{
      {"mappath", 1, 1, &Self::callMapPath},
      {"createobject", 1, 1, &Self::callCreateObject},
      {"htmlencode", 1, 1, &Self::callHTMLEncode},
      {"urlencode", 1, 1, &Self::callURLEncode},
      {"execute", 1, 1, &Self::callExecute},
      {"transfer", 1, 1, &Self::callTransfer},
      {"getlasterror", 0, 0, &Self::callGetLastError},
      {"scripttimeout", 0, 0, &Self::getScriptTimeout, &Self::putScriptTimeout},
  }};
  return kMembers;
}

/// The bytes of the path, a character each: so components take the names of files.
vbs::Value ServerObject::callMapPath(vbs::Args args) {
  const std::string bytes = nameBytes(textOf(args[0]), page().codePage());
  const auto result = mappedPath(services_, page().folder(), bytes);
  if (!result) {
    throwComponentError(kServerError, "The path does not lead into the site: '" + bytes + '\'',
                        "Server.MapPath()");
  }
  return vbs::Value(std::string_view(*result));
}

vbs::Value ServerObject::callCreateObject(vbs::Args args) {
  return createComponent(textOf(args[0]).narrow(), services_);
}

vbs::Value ServerObject::callHTMLEncode(vbs::Args args) {
  return htmlEncoded(textOf(args[0]), page().codePage());
}

vbs::Value ServerObject::callURLEncode(vbs::Args args) {
  return urlEncoded(textOf(args[0]), page().codePage());
}

vbs::Value ServerObject::callExecute(vbs::Args args) {
  page().execute(nameBytes(textOf(args[0]), page().codePage()));
  return {};
}

vbs::Value ServerObject::callTransfer(vbs::Args args) {
  Page& running = page();
  running.transfer(nameBytes(textOf(args[0]), running.codePage()));
  return {};
}

vbs::Value ServerObject::callGetLastError(vbs::Args) {
  return vbs::Value::adopt(new ErrorObject(page().lastError()));
}

vbs::Value ServerObject::getScriptTimeout(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(page().timeLimit().count()));
}

void ServerObject::putScriptTimeout(vbs::Args args, vbs::CallKind) {
  const std::int32_t asked = std::clamp(vbs::toLong(args.back()), 1, aspServerObj::kLongestTimeout);
  page().setTimeLimit(std::chrono::seconds(asked));
}

}  // namespace quorvane::customary
