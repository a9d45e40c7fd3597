#include "jet_targets.h"

#include <algorithm>
#include <cstring>

#include "components/ado/jet/copy_writer.h"
#include "components/ado/jet/file_head.h"
#include "require.h"
#include "testing/fake_services.h"

namespace quorvane {

namespace {

/// Hands the bytes over in pieces of several lengths.
class PiecesOfBytes final : public ado::jet::ByteSource {
 public:
  explicit PiecesOfBytes(std::string_view bytes) : left_(bytes) {}

  std::size_t read(char* out, std::size_t length) override {
    piece_ = piece_ % 97 + 13;
    const std::size_t count = std::min({piece_, length, left_.size()});
    std::memcpy(out, left_.data(), count);
    left_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view left_;
  std::size_t piece_ = 0;
};

bool isSound(ado::SqliteCore& core) {
  const ado::SqliteCore::Trusted trusted(core);
  ado::SqliteStatement check(core, "PRAGMA integrity_check");
  return check.step() && check.text(0) == "ok";
}

}  // namespace

bool jetImports(std::string_view bytes) {
  FakeServices<> outside;
  ado::SqliteOptions options;
  options.path = ":memory:";
  ado::SqliteCore core(outside.services, options);
  try {
    ado::jet::CopyWriter writer(core, outside.log, {"", 0, 1 << 20});
    PiecesOfBytes source(bytes);
    ado::jet::readStream(source, writer);
    writer.finish(1);
  } catch (const ado::jet::ImportFailed& failed) {
    require(!failed.reason.empty(), "a failure has a reason", bytes);
    return false;
  } catch (const ado::DatabaseError& error) {
    require(!error.description.empty(), "a failure has a reason", bytes);
    return false;
  }
  require(isSound(core), "an import makes a sound database", bytes);
  return true;
}

void fuzzJet(std::string_view bytes) {
  if (const auto head = ado::jet::fileHead(bytes)) {
    require(head->password.size() <= 60, "a password has its place in the head", bytes);
  }
  jetImports(bytes);
}

}  // namespace quorvane
