#include "script/customary/request_object.h"

#include <algorithm>
#include <array>

#include "components/arguments.h"
#include "http/clsHTTPParser.h"
#include "script/customary/code_page.h"
#include "script/customary/failure.h"
#include "script/customary/request_collections.h"
#include "script/objects/server_variables.h"
#include "script/script_values.h"
#include "support/text.h"

namespace quorvane::customary {

namespace {

/// What the default dialect's pages have no variable for.
struct OwnVariable {
  std::string_view name;
  std::string (*value)(const clsHTTPParser& request, const Page& page);
};

/// The address as the client wrote it.
std::string addressOf(const clsHTTPParser& request, const Page&) {
  return std::string(request.head().target());
}

constexpr OwnVariable kOwnVariables[] = {
    {"HTTP_METHOD", [](const clsHTTPParser& r, const Page&) { return std::string(r.method()); }},
    {"HTTP_URL", addressOf},
    {"HTTP_VERSION",
     [](const clsHTTPParser& r, const Page&) { return std::string(r.head().version()); }},
    {"LOCAL_ADDR", [](const clsHTTPParser&, const Page& page) { return page.localAddress(); }},
    {"UNENCODED_URL", addressOf},
};

constexpr std::string_view kFormType = "application/x-www-form-urlencoded";

/// Only their names decoded: what a value means is known when it is asked for.
NameValues cookiesOf(const clsHTTPParser& request, std::int32_t codePage) {
  NameValues cookies;
  std::string_view text = request.head().header("cookie");
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(';'), text.size());
    const std::string_view pair = trimBlanks(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t equals = pair.find('=');
    if (equals == pair.npos || equals == 0) continue;
    cookies.add(decodeUrl(pair.substr(0, equals), codePage).narrow(),
                vbs::String(pair.substr(equals + 1)));
  }
  return cookies;
}

vbs::Ref<ValueCollection> collectionOf(std::string_view text, std::int32_t codePage) {
  auto values = std::make_shared<const NameValues>(NameValues::decoded(text, '&', codePage));
  return vbs::make<ValueCollection>(std::move(values), vbs::Value(text));
}

vbs::Value noObject() {
  return script_values::objectValue(
      vbs::make<ValueCollection>(std::make_shared<const NameValues>(), vbs::Value()));
}

}  // namespace

std::span<const vbs::Member<RequestObject>> RequestObject::members() {
  using Self = RequestObject;
  static constexpr std::array<vbs::Member<Self>, 8> kMembers{{
      {"item", 1, 1, &Self::getItem, nullptr, true, false, &Self::getItemObject},
      {"querystring", 0, 1, &Self::getQueryString, nullptr, false, false,
       &Self::getQueryStringObject},
      {"form", 0, 1, &Self::getForm, nullptr, false, false, &Self::getFormObject},
      {"cookies", 0, 1, &Self::getCookies, nullptr, false, false, &Self::getCookiesObject},
      {"servervariables", 0, 1, &Self::getServerVariables, nullptr, false, false,
       &Self::getServerVariablesObject},
      {"clientcertificate", 0, 1, &Self::getClientCertificate, nullptr, false, false,
       &Self::getClientCertificateObject},
      {"totalbytes", 0, 0, &Self::getTotalBytes},
      {"binaryread", 1, 1, &Self::callBinaryRead},
  }};
  return kMembers;
}

const clsHTTPParser& RequestObject::request() const {
  if (!request_) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
  return *request_;
}

ValueCollection& RequestObject::query() {
  if (!query_) query_ = collectionOf(request().DocumentQueryString(), page_->codePage());
  return *query_;
}

ValueCollection& RequestObject::form() {
  if (body_ == Body::AsBytes) fail("The form can't be read after BinaryRead");
  body_ = Body::AsForm;
  if (!form_) {
    const bool isForm = startsWithNoCase(request().head().header("content-type"), kFormType);
    form_ = collectionOf(isForm ? request().body() : std::string_view(), page_->codePage());
  }
  return *form_;
}

const NameValues& RequestObject::cookies() {
  if (!cookies_) cookies_ = cookiesOf(request(), page_->codePage());
  return *cookies_;
}

std::optional<std::string> RequestObject::cookie(std::string_view name) const {
  const NameValues all = cookiesOf(request(), kAnsi);
  const NameValues::Values* values = all.find(name);
  return values ? std::optional(values->front().narrow()) : std::nullopt;
}

vbs::Value RequestObject::getQueryString(vbs::Args args) {
  return query().getItem(args);
}

vbs::Value RequestObject::getQueryStringObject(vbs::Args args) {
  return query().getItemObject(args);
}

vbs::Value RequestObject::getForm(vbs::Args args) {
  return form().getItem(args);
}

vbs::Value RequestObject::getFormObject(vbs::Args args) {
  return form().getItemObject(args);
}

vbs::Value RequestObject::getCookies(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) return vbs::Value(request().head().header("cookie"));
  const auto* values = cookies().find(vbs::toString(args[0]).narrow());
  if (!values) return vbs::Value(std::string_view());
  return vbs::Value(decodeUrl(values->front().narrow(), page_->codePage()));
}

vbs::Value RequestObject::getCookiesObject(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) {
    auto all = std::make_shared<NameValues>();
    for (std::size_t i = 0; i < cookies().count(); ++i) {
      const std::string& name = cookies().name(i);
      all->add(name, decodeUrl(cookies().find(name)->front().narrow(), page_->codePage()));
    }
    return script_values::objectValue(vbs::make<ValueCollection>(all, vbs::Value()));
  }
  const vbs::Value& key = args[0].deref();
  const auto* values =
      key.isString() ? cookies().find(vbs::toString(key).narrow())
                     : cookies().find(cookies().name(script_values::place(key, cookies().count())));
  const std::string text = values ? values->front().narrow() : std::string();
  return script_values::objectValue(vbs::make<CookieValue>(text, page_->codePage()));
}

vbs::String RequestObject::serverVariableText(std::string_view name) {
  if (!headers_) headers_.emplace(request().head());
  const auto own =
      std::find_if(std::begin(kOwnVariables), std::end(kOwnVariables),
                   [&](const OwnVariable& variable) { return equalsNoCase(variable.name, name); });
  return decode(page_->codePage(), own != std::end(kOwnVariables)
                                       ? own->value(request(), *page_)
                                       : serverVariable(name, request(), *headers_, state_));
}

vbs::Value RequestObject::getServerVariables(vbs::Args args) {
  if (!arguments::isGiven(args, 0)) return vbs::Value(std::string_view());
  return vbs::Value(serverVariableText(vbs::toString(args[0]).narrow()));
}

vbs::Value RequestObject::getServerVariablesObject(vbs::Args args) {
  if (arguments::isGiven(args, 0)) {
    const vbs::Value value = getServerVariables(args);
    return script_values::objectValue(vbs::make<ValueList>(NameValues::Values{value.asString()}));
  }
  if (!headers_) headers_.emplace(request().head());
  auto all = std::make_shared<NameValues>();
  for (const std::string& name : serverVariableNames(*headers_)) {
    all->add(name, serverVariableText(name));
  }
  for (const OwnVariable& variable : kOwnVariables) {
    all->add(std::string(variable.name), serverVariableText(variable.name));
  }
  return script_values::objectValue(vbs::make<ValueCollection>(all, vbs::Value()));
}

/// Certificates of clients do not come this far.
vbs::Value RequestObject::getClientCertificate(vbs::Args) {
  return {};
}

vbs::Value RequestObject::getClientCertificateObject(vbs::Args) {
  return noObject();
}

vbs::Value RequestObject::getItem(vbs::Args args) {
  vbs::Value value = getQueryString(args);
  if (value.isEmpty() && body_ != Body::AsBytes) value = getForm(args);
  const vbs::String name = vbs::toString(args[0]);
  if (value.isEmpty() && cookies().find(name.narrow())) return getCookies(args);
  if (!value.isEmpty()) return value;
  value = getServerVariables(args);
  return value.asString().empty() ? vbs::Value() : value;
}

vbs::Value RequestObject::getItemObject(vbs::Args args) {
  if (!getQueryString(args).isEmpty()) return getQueryStringObject(args);
  if (body_ != Body::AsBytes && !getForm(args).isEmpty()) return getFormObject(args);
  if (cookies().find(vbs::toString(args[0]).narrow())) return getCookiesObject(args);
  if (getItem(args).isEmpty())
    return script_values::objectValue(vbs::make<ValueList>(NameValues::Values()));
  return getServerVariablesObject(args);
}

vbs::Value RequestObject::getTotalBytes(vbs::Args) {
  return vbs::Value::longInt(static_cast<std::int32_t>(request().body().size()));
}

vbs::Value RequestObject::callBinaryRead(vbs::Args args) {
  if (body_ == Body::AsForm) fail("BinaryRead can't be used after the form has been read");
  body_ = Body::AsBytes;
  const std::int32_t wanted = vbs::toLong(args[0]);
  if (wanted < 0) vbs::throwError(vbs::ErrorCode::InvalidCall);
  const std::string_view body = request().body();
  const std::string_view bytes =
      body.substr(std::min(bodyRead_, body.size()), static_cast<std::size_t>(wanted));
  bodyRead_ += bytes.size();
  if (args[0].is(vbs::Type::Reference)) {
    *args[0].target() = vbs::Value::longInt(static_cast<std::int32_t>(bytes.size()));
  }
  if (bytes.empty()) return {};
  return vbs::Value::array(vbs::ArrayRep::fromBytes(bytes));
}

}  // namespace quorvane::customary
