#include "components/http_request.h"

#include "components/http_client/request.h"

namespace quorvane {

namespace {

template <bool isServer, bool selectsByXPath>
vbs::Value create(const Services& services) {
  const http_client::XmlHttpForm form{isServer, selectsByXPath};
  return vbs::Value::adopt(new http_client::XmlHttp(services, form));
}

}  // namespace

const Component kXmlHttp{"msxml2.xmlhttp microsoft.xmlhttp msxml.xmlhttp", &create<false, false>};

const Component kXmlHttp6{"msxml2.xmlhttp.4.0 msxml2.xmlhttp.5.0 msxml2.xmlhttp.6.0",
                          &create<false, true>};

const Component kServerXmlHttp{"msxml2.serverxmlhttp microsoft.serverxmlhttp",
                               &create<true, false>};

const Component kServerXmlHttp6{
    "msxml2.serverxmlhttp.4.0 msxml2.serverxmlhttp.5.0 msxml2.serverxmlhttp.6.0",
    &create<true, true>};

const Component kWinHttpRequest{"winhttp.winhttprequest", [](const Services& services) {
                                  return vbs::Value::adopt(new http_client::WinHttp(services));
                                }};

}  // namespace quorvane
