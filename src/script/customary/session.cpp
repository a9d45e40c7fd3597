#include "script/customary/session.h"

#include <array>

#include "support/text.h"

namespace quorvane::customary {

namespace {

class Finder final : public vbs::ReferenceVisitor {
 public:
  void value(vbs::Value& held) override { found |= held.isObject() || held.isArray(); }

  bool found = false;
};

}  // namespace

/// An identifier has a few bits that are not left to chance; the sum of two of them, shifted
/// against each other, has none.
std::string newSessionId(Random& random) {
  const auto first = random.guid();
  const auto second = random.guid();
  std::array<std::uint8_t, 16> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(first[i] + second[(i + 4) % bytes.size()]);
  }
  return hexDigits(bytes);
}

bool Session::holdsObjects() const {
  Finder finder;
  contents->visitReferences(finder);
  return finder.found || (objects && objects->holdsAny());
}

}  // namespace quorvane::customary
