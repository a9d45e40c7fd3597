#include "http/protocol.h"

#include <utility>

#include "http/clsHTTPParser.h"
#include "http/error_responses.h"
#include "http/standard/protocol.h"
#include "support/server_state.h"

namespace quorvane {

namespace {

class OwnProtocol final : public Protocol {
 public:
  OwnProtocol(const ServerState& state, const Clock& clock) : heads_(state, clock) {}

  Collected collect(SlotRecord& record, std::string_view data) override {
    return request_collector::collect(record, data);
  }

  void parse(Collected& collected, clsHTTPParser& parser) override {
    if (collected.direct.empty()) {
      parser.adoptHTTPData(std::move(collected.storage), collected.bodyStart);
    } else {
      parser.setHTTPData(collected.direct, collected.bodyStart);
    }
  }

  ResponseHeads& heads() override { return heads_; }
  Framing framingFor(const clsHTTPParser&) const override { return Framing::UntilClose; }
  Status statusOf(bool) const override { return Status::Ok; }
  std::optional<Response> byMethod(const clsHTTPParser&, const Place&) override {
    return std::nullopt;
  }

  Response refusal(const Collected&) override {
    return {error_responses::badRequest(heads_), {}, false};
  }
  Response missing(const clsHTTPParser&, const Place&, std::string_view name) override {
    return {error_responses::notFound(heads_, name), {}, false};
  }
  std::optional<Response> givenUp(Status) override { return std::nullopt; }

 private:
  ResponseHeads heads_;
};

}  // namespace

std::unique_ptr<Protocol> makeProtocol(const ServerState& state, const Clock& clock) {
  if (state.StandardHTTP) return std::make_unique<StandardProtocol>(state, clock);
  return std::make_unique<OwnProtocol>(state, clock);
}

}  // namespace quorvane
