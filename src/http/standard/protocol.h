#pragma once

#include <string>
#include <string_view>

#include "http/protocol.h"
#include "http/standard/collector.h"
#include "http/standard/heads.h"

namespace quorvane {

/// That of RFC 9110 and 9112, as an origin server keeps to them.
class StandardProtocol final : public Protocol {
 public:
  /// Both outlive the object.
  StandardProtocol(const ServerState& state, const Clock& clock) : heads_(state, clock) {}

  Collected collect(SlotRecord& record, std::string_view data) override {
    return collector_.collect(record, data);
  }
  void parse(Collected& collected, clsHTTPParser& parser) override;
  ResponseHeads& heads() override { return heads_; }
  Framing framingFor(const clsHTTPParser& request) const override;
  Status statusOf(bool pageFailed) const override {
    return pageFailed ? Status::InternalServerError : Status::Ok;
  }
  std::optional<Response> byMethod(const clsHTTPParser& request, const Place& place) override;
  Response refusal(const Collected& refused) override;
  Response missing(const clsHTTPParser& request, const Place& place,
                   std::string_view name) override;
  std::optional<Response> givenUp(Status why) override;

 private:
  StandardCollector collector_;
  StandardHeads heads_;
};

}  // namespace quorvane
