#include "script/objects/aspRequestObj.h"

#include <algorithm>
#include <array>
#include <utility>

#include "http/clsHTTPParser.h"
#include "http/cookie_jar.h"
#include "script/objects/request_collection.h"
#include "script/objects/request_cookie.h"
#include "script/objects/request_values.h"
#include "script/objects/server_variables.h"
#include "script/script_values.h"
#include "support/keyed_collection.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/time_check.h"

namespace quorvane {

namespace {

vbs::Value emptyText() {
  return vbs::Value(std::string_view());
}

}  // namespace

void aspRequestObj::attach(const clsHTTPParser& request, CookieJar& cookies) {
  request_ = &request;
  cookies_ = &cookies;
}

void aspRequestObj::detach() {
  request_ = nullptr;
  cookies_ = nullptr;
  headers_.reset();
}

std::span<const vbs::Member<aspRequestObj>> aspRequestObj::members() {
  using Self = aspRequestObj;
  static constexpr std::array<vbs::Member<Self>, 7> kMembers{{
      {"querystring", 0, 1, &Self::getQueryString, nullptr, false, false,
       &Self::getQueryStringObject},
      {"form", 0, 1, &Self::getForm, nullptr, false, false, &Self::getFormObject},
      {"default", 0, 1, &Self::getDefault, nullptr, true, false, &Self::getDefaultObject},
      {"cookies", 0, 1, &Self::getCookies},
      // For pages written for other servers, by the object's name only.
      {"servervariables", 0, 1, &Self::getServerVariables},
      {"totalbytes", 0, 0, &Self::getTotalBytes},
      {"binaryread", 1, 1, &Self::callBinaryRead},
  }};
  return kMembers;
}

vbs::Value aspRequestObj::variable(vbs::Args args, std::int32_t source,
                                   const std::string& withoutName) const {
  const std::string name = script_values::textArgument(args, 0);
  if (name.empty()) return vbs::Value(std::string_view(withoutName));
  return vbs::Value(std::string_view(request_->RequestVar(name, source)));
}

vbs::Value aspRequestObj::getQueryString(vbs::Args args) {
  if (!request_) return emptyText();
  return variable(args, clsHTTPParser::QueryOnly, request_->DocumentQueryString());
}

vbs::Value aspRequestObj::getForm(vbs::Args args) {
  if (!request_) return emptyText();
  return variable(args, clsHTTPParser::FormOnly, {});
}

vbs::Value aspRequestObj::getDefault(vbs::Args args) {
  if (!request_) return emptyText();
  return variable(args, clsHTTPParser::QueryThenForm, {});
}

vbs::Value aspRequestObj::getQueryStringObject(vbs::Args args) {
  return variables(args, clsHTTPParser::QueryOnly, &aspRequestObj::getQueryString);
}

vbs::Value aspRequestObj::getFormObject(vbs::Args args) {
  return variables(args, clsHTTPParser::FormOnly, &aspRequestObj::getForm);
}

vbs::Value aspRequestObj::getDefaultObject(vbs::Args args) {
  return variables(args, clsHTTPParser::QueryThenForm, &aspRequestObj::getDefault);
}

/// Where pages written for other servers take a plain member for a collection: the variables by
/// name, or all that one name has.
vbs::Value aspRequestObj::variables(vbs::Args args, clsHTTPParser::Source source, Item item) {
  if (request_) vbs::countWork(request_->HTTPData().size());
  const auto sent = request_ ? request_->variables(source) : std::vector<clsHTTPParser::Variable>();
  if (!script_values::hasArgument(args, 0)) {
    KeyedCollection<bool> known;
    std::vector<std::string> names;
    for (const auto& variable : sent) {
      if (known.add(variable.name, true)) names.push_back(variable.name);
    }
    return collection(item, std::move(names));
  }
  const std::string name = script_values::text(args[0]);
  std::vector<vbs::Value> values;
  for (const auto& variable : sent) {
    if (equalsNoCase(variable.name, name)) values.emplace_back(std::string_view(variable.value));
  }
  return script_values::objectValue(
      vbs::make<RequestValues>((this->*item)(args), std::move(values)));
}

vbs::Value aspRequestObj::getCookies(vbs::Args args) {
  if (!request_) return emptyText();
  if (!script_values::hasArgument(args, 0)) {
    std::vector<std::string> names;
    for (const auto& entry : *cookies_) names.push_back(entry.value.Name());
    return collection(&aspRequestObj::getCookies, std::move(names));
  }
  clsCookieObj copy;
  if (const clsCookieObj* held = cookies_->find(script_values::text(args[0]))) {
    copy = *held;
    copy.setName({});
  }
  return script_values::objectValue(vbs::make<RequestCookie>(std::move(copy), encoder_));
}

vbs::Value aspRequestObj::getServerVariables(vbs::Args args) {
  if (!request_) return emptyText();
  if (!script_values::hasArgument(args, 0)) {
    return collection(&aspRequestObj::getServerVariables, serverVariableNames(headers()));
  }
  return vbs::Value(
      std::string_view(serverVariable(script_values::text(args[0]), *request_, headers(), state_)));
}

vbs::Value aspRequestObj::collection(Item item, std::vector<std::string> names) {
  return script_values::objectValue(
      vbs::make<RequestCollection>(vbs::Ref<aspRequestObj>(this), item, std::move(names)));
}

const HeaderVariables& aspRequestObj::headers() {
  if (!headers_) headers_.emplace(request_->head());
  return *headers_;
}

std::string_view aspRequestObj::body() const {
  return request_ ? request_->body() : std::string_view();
}

vbs::Value aspRequestObj::getTotalBytes(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(body().size()));
}

vbs::Value aspRequestObj::callBinaryRead(vbs::Args args) {
  const std::int32_t wanted = std::max(vbs::toLong(args[0]), 0);
  const std::string_view rest = body().substr(std::min(bodyRead_, body().size()));
  const std::string_view bytes = rest.substr(0, static_cast<std::size_t>(wanted));
  bodyRead_ += bytes.size();
  return vbs::Value::array(vbs::ArrayRep::fromBytes(bytes));
}

}  // namespace quorvane
