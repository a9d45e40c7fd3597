#include "script/objects/aspServerObj.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "components/components.h"
#include "http/clsHTTPParser.h"
#include "platform/process.h"
#include "script/objects/clsHVar.h"
#include "script/script_values.h"
#include "script/sessions/auth_keys.h"
#include "support/base64.h"
#include "support/clsWEncode.h"
#include "support/files.h"
#include "support/paths.h"
#include "support/server_state.h"
#include "support/text.h"
#include "vbscript/values/convert.h"

namespace quorvane {

using script_values::text;

namespace {

/// Folders are mapped wherever they lie.
constexpr std::string_view kEverywhere(&paths::kSeparator, 1);

/// Debug lines of one run that reach the log; a loop writes millions within its time.
constexpr int kMostDebugLines = 10'000;
constexpr std::string_view kTooManyDebugLines = "(the rest of more than 10000 lines is left out)";

vbs::Value textValue(const std::string& bytes) {
  return vbs::Value(std::string_view(bytes));
}

}  // namespace

void aspServerObj::setPageFolder(std::string_view folder) {
  pageFolder_ = paths::native(trimBlanks(folder));
  if (pageFolder_.size() > 1 && pageFolder_.back() == paths::kSeparator) pageFolder_.pop_back();
  if (pageFolder_.ends_with(':')) pageFolder_ += paths::kSeparator;
}

void aspServerObj::detach() {
  page_ = nullptr;
  request_ = nullptr;
  headers_.reset();
}

const clsHTTPParser& aspServerObj::request() const {
  if (!request_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *request_;
}

aspServerObj::Page& aspServerObj::page() const {
  if (!page_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *page_;
}

const HeaderVariables& aspServerObj::headers() {
  if (!headers_) headers_.emplace(request().head());
  return *headers_;
}

std::string aspServerObj::Version() const {
  return services_.state.AppVersion + " (Beta)";
}

std::string aspServerObj::MapPath(const std::string& path) {
  Process& process = services_.process;
  process.setCurrentFolder(pageFolder_);
  if (const std::string target = paths::native(path);
      !target.empty() && !process.setCurrentFolder(target)) {
    const std::string_view from = paths::isSeparator(target.front()) ? kEverywhere : pageFolder_;
    const auto wanted = RootedPath::resolved(kEverywhere, from, target);
    const auto found = wanted ? services_.files.find(*wanted) : std::nullopt;
    if (found) process.setCurrentFolder(*found);
  }
  return process.currentFolder();
}

std::span<const vbs::Member<aspServerObj>> aspServerObj::members() {
  using Self = aspServerObj;
  static constexpr std::array<vbs::Member<Self>, kGlobalMembers + 4> kMembers{{
      {"headervar", 1, 1, &Self::getHeaderVar},
      {"headervarcount", 0, 0, &Self::getHeaderVarCount},
      {"version", 0, 0, &Self::getVersion},
      {"hostaddr", 0, 0, &Self::getHostAddr},
      {"clientip", 0, 0, &Self::getClientIP},
      {"mappath", 0, 1, &Self::callMapPath},
      {"xcreateobject", 1, 1, &Self::callXCreateObject},
      {"issueauthkey", 0, 1, &Self::callIssueAuthKey},
      {"validateauthkey", 1, 1, &Self::callValidateAuthKey},
      {"urlencode", 1, 1, &Self::callURLEncode},
      {"urldecode", 1, 1, &Self::callURLDecode},
      {"htmlencode", 1, 1, &Self::callHTMLEncode},
      {"htmldecode", 1, 1, &Self::callHTMLDecode},
      {"b64encode", 1, 1, &Self::callB64Encode},
      {"b64decode", 1, 1, &Self::callB64Decode},
      {"debugout", 1, 1, &Self::callDebugOut},
      // For pages written for other servers. By the object's name only, since the bare names are
      // the language's own function and statement.
      {"createobject", 1, 1, &Self::callXCreateObject},
      {"scripttimeout", 0, 0, &Self::getScriptTimeout, &Self::putScriptTimeout},
      {"execute", 1, 1, &Self::callExecute},
      {"transfer", 1, 1, &Self::callTransfer},
  }};
  return kMembers;
}

vbs::Value aspServerObj::getHeaderVar(vbs::Args args) {
  const std::string wanted = text(args[0]);
  const HeaderVariables::Line* line = nullptr;
  if (const auto position = numericLong(wanted)) {
    line = *position > 0 ? headers().at(static_cast<std::size_t>(*position)) : nullptr;
  } else {
    line = headers().named(wanted);
  }
  if (!line) return vbs::Value::nothing();
  return script_values::objectValue(
      vbs::make<clsHVar>(std::string(line->name), std::string(line->value)));
}

vbs::Value aspServerObj::getHeaderVarCount(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(headers().count()));
}

vbs::Value aspServerObj::getVersion(vbs::Args) {
  return textValue(Version());
}
vbs::Value aspServerObj::getHostAddr(vbs::Args) {
  return textValue(request().HostAddr());
}
vbs::Value aspServerObj::getClientIP(vbs::Args) {
  return textValue(request().RemoteIP());
}

vbs::Value aspServerObj::callMapPath(vbs::Args args) {
  return textValue(MapPath(script_values::textArgument(args, 0)));
}

vbs::Value aspServerObj::callXCreateObject(vbs::Args args) {
  try {
    return createComponent(text(args[0]), services_);
  } catch (const vbs::ScriptError&) {
    return vbs::Value::nothing();  // pages test for it
  }
}

vbs::Value aspServerObj::callIssueAuthKey(vbs::Args args) {
  const std::int16_t lifetime =
      script_values::hasArgument(args, 0) ? vbs::toInteger(args[0]) : std::int16_t{0};
  return textValue(parts_.authKeys.issue(std::chrono::minutes{lifetime}));
}

vbs::Value aspServerObj::callValidateAuthKey(vbs::Args args) {
  return vbs::Value::boolean(parts_.authKeys.validate(text(args[0])));
}

vbs::Value aspServerObj::callURLEncode(vbs::Args args) {
  const std::string plain = text(args[0]);
  const vbs::MemoryCharge work(plain.size() + parts_.encoder.lengthAsURL(plain));
  return textValue(parts_.encoder.afEncodeURL(plain));
}

vbs::Value aspServerObj::callURLDecode(vbs::Args args) {
  const std::string coded = text(args[0]);
  const vbs::MemoryCharge work(2 * coded.size());
  const auto decoded = parts_.encoder.afDecodeURL(coded);
  if (!decoded) vbs::throwError(vbs::ErrorCode::TypeMismatch);
  return textValue(*decoded);
}

vbs::Value aspServerObj::callHTMLEncode(vbs::Args args) {
  const std::string plain = text(args[0]);
  const vbs::MemoryCharge work(plain.size() + parts_.encoder.lengthAsHTML(plain));
  return textValue(parts_.encoder.afText2HTML(plain));
}

vbs::Value aspServerObj::callHTMLDecode(vbs::Args args) {
  const std::string coded = text(args[0]);
  const vbs::MemoryCharge work(2 * coded.size());
  return textValue(parts_.encoder.afHTML2Text(coded));
}

vbs::Value aspServerObj::callB64Encode(vbs::Args args) {
  const std::string plain = text(args[0]);
  const vbs::MemoryCharge work(plain.size() + plain.size() / 3 * 4);
  return textValue(encodeBase64(plain));
}

vbs::Value aspServerObj::callB64Decode(vbs::Args args) {
  const std::string coded = text(args[0]);
  const vbs::MemoryCharge work(2 * coded.size());
  return textValue(decodeBase64(coded));
}

vbs::Value aspServerObj::callDebugOut(vbs::Args args) {
  if (debugLines_ > kMostDebugLines) return {};
  const bool isBeyond = ++debugLines_ > kMostDebugLines;
  page().objServer_DebugOutput(isBeyond ? std::string(kTooManyDebugLines) : text(args[0]));
  return {};
}

vbs::Value aspServerObj::getScriptTimeout(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(page().timeLimit().count()));
}

void aspServerObj::putScriptTimeout(vbs::Args args, vbs::CallKind) {
  const std::int32_t asked = std::clamp(vbs::toLong(args.back()), 1, kLongestTimeout);
  page().setTimeLimit(std::chrono::seconds(asked));
}

vbs::Value aspServerObj::callExecute(vbs::Args args) {
  page().execute(text(args[0]));
  return {};
}

vbs::Value aspServerObj::callTransfer(vbs::Args args) {
  page().execute(text(args[0]));
  page().endPage();
  return {};
}

}  // namespace quorvane
