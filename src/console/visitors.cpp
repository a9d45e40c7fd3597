#include "console/visitors.h"

#include <algorithm>
#include <utility>

#include "console/access_rules.h"
#include "proxies/proxy_headers.h"
#include "proxies/proxy_protocol.h"

namespace quorvane {

namespace {

/// Whether the line stands in the head as proxies know it. What begins with a blank belongs to the
/// line before for them, and what has one before its colon is another header or none.
bool isExact(const RequestHead& head, std::string_view name) {
  const std::string& text = head.text();
  const auto start = static_cast<std::size_t>(name.data() - text.data());
  return start > 0 && text[start - 1] == '\n' && text[start + name.size()] == ':';
}

ProxyHeaders proxyHeaders(const RequestHead& head) {
  ProxyHeaders headers;
  for (const RequestHead::Header& line : head.headers()) {
    if (isExact(head, line.name)) headers.take(line.name, line.value);
  }
  return headers;
}

}  // namespace

bool Visitors::mayConnect(std::string_view address) const {
  return quorvane::mayConnect(state_, address) || state_.TrustedProxies.contains(address);
}

void Visitors::begin(int index) {
  if (state_.TrustedProxies.empty() && state_.Listen.empty()) {
    kept_.clear();
    return;
  }
  if (!isKept(index)) kept_.resize(static_cast<std::size_t>(index) + 1);
  Kept& slot = kept_[static_cast<std::size_t>(index)];
  const TcpSocket& socket = slots_.socket(index);
  slot = {};
  slot.visitor.address = slot.lastAddress = socket.remoteHostIP();
  if (!state_.Listen.empty()) slot.visitor.port = socket.localPort();
  slot.isProxied = state_.TrustedProxies.contains(std::string_view(slot.visitor.address));
  slot.awaitsPreface = slot.isProxied && state_.ProxyProtocol;
  slot.headsName = slot.isProxied && !state_.ProxyProtocol;
}

std::optional<std::string_view> Visitors::takePreface(int index, std::string_view data) {
  using Outcome = ProxyPreface::Outcome;
  Kept& slot = kept_[static_cast<std::size_t>(index)];
  const std::size_t before = slot.preface.size();
  slot.preface += data;
  ProxyPreface preface = ProxyPreface::read(slot.preface);
  if (preface.outcome == Outcome::NeedMore) return std::string_view();
  std::string().swap(slot.preface);
  if (preface.outcome == Outcome::Refused) {
    status_.LogLine(slot.visitor.address +
                    " > REFUSED: the connection begins without a client's name");
    return std::nullopt;
  }
  slot.awaitsPreface = false;
  if (preface.outcome == Outcome::Named) {
    slot.visitor = std::move(preface.visitor);
    slot.lastAddress = slot.visitor.address;
    slot.headsName = state_.TrustedProxies.contains(std::string_view(slot.visitor.address));
    status_.LogLine("Connection request for IP " + slot.visitor.address);
  }
  return data.substr(preface.length - before);
}

const std::string& Visitors::addressOf(int index) const {
  return isKept(index) ? kept(index).visitor.address : slots_.socket(index).remoteHostIP();
}

const std::string& Visitors::lastAddressOf(int index) const {
  return isKept(index) ? kept(index).lastAddress : slots_.socket(index).remoteHostIP();
}

Clients::Admission Visitors::admit(int index, const RequestHead& head, Visitor& visitor) {
  using Admission = Clients::Admission;
  if (!isKept(index)) return Admission::Granted;
  Kept& slot = kept_[static_cast<std::size_t>(index)];
  visitor = slot.visitor;
  if (!slot.isProxied) return Admission::Granted;
  if (slot.headsName) {
    const auto fault = nameVisitor(proxyHeaders(head), state_.TrustedProxies, visitor);
    if (!fault.empty()) {
      status_.LogLine(slot.visitor.address + " > REFUSED: " + std::string(fault));
      return Admission::Unclear;
    }
  }
  slot.lastAddress = visitor.address;
  if (quorvane::mayConnect(state_, visitor.address)) return Admission::Granted;
  status_.LogLine(visitor.address + " > REFUSED: not by the access rules");
  return Admission::Forbidden;
}

}  // namespace quorvane
