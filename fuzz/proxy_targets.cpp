#include "proxy_targets.h"

#include <algorithm>
#include <string>

#include "proxies/proxy_headers.h"
#include "proxies/proxy_protocol.h"
#include "require.h"
#include "support/listen_address.h"
#include "support/text.h"

namespace quorvane {

namespace {

void readPreface(std::string_view bytes) {
  using Outcome = ProxyPreface::Outcome;
  const ProxyPreface whole = ProxyPreface::read(bytes);
  require(whole.length <= bytes.size(), "what is read has come", bytes);
  if (whole.outcome != Outcome::Named && whole.outcome != Outcome::Unnamed) return;
  const std::string_view taken = bytes.substr(0, whole.length);
  require(ProxyPreface::read(taken).visitor == whole.visitor, "what follows says nothing", bytes);
  for (const std::size_t parts : {2U, 3U, 7U}) {
    require(ProxyPreface::read(taken.substr(0, whole.length / parts)).outcome == Outcome::NeedMore,
            "a part is no whole", bytes);
  }
  const std::string& address = whole.visitor.address;
  const bool isOne = address == kLocalClient || IpAddress::parse(address);
  require(isOne || whole.outcome == Outcome::Unnamed, "who is named has an address", bytes);
}

/// Lines as a client sends them, then one that its proxy adds.
void readHeaders(std::string_view bytes, std::string_view addedName, std::string_view added) {
  static const AddressRanges trusted = AddressRanges::parse("127.0.0.1 10.0.0.0/8 unix");
  ProxyHeaders headers;
  for (const std::string_view line : split(bytes, '\n')) {
    const std::size_t colon = std::min(line.find(':'), line.size());
    headers.take(line.substr(0, colon), line.substr(std::min(colon + 1, line.size())));
  }
  headers.take(addedName, added);
  Visitor visitor{"127.0.0.1", false, {}, 0};
  const bool isNamed = nameVisitor(headers, trusted, visitor).empty();
  require(visitor.address == (isNamed ? "192.0.2.1" : "127.0.0.1"), "no client names itself",
          bytes);
}

}  // namespace

void fuzzProxies(std::string_view bytes) {
  readPreface(bytes);
  readHeaders(bytes, "X-Forwarded-For", "192.0.2.1");
  readHeaders(bytes, "Forwarded", "for=192.0.2.1");
  const auto address = IpAddress::parse(bytes);
  if (address) require(IpAddress::parse(address->text()) == address, "its text is it", bytes);
  for (const ListenAddress& place : ListenAddress::parseList(bytes)) {
    require(ListenAddress::parse(place.text()) == place, "a place's text is it", bytes);
  }
}

}  // namespace quorvane
