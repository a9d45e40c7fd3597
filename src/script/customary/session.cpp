#include "script/customary/session.h"

namespace quorvane::customary {

namespace {

class Finder final : public vbs::ReferenceVisitor {
 public:
  void value(vbs::Value& held) override { found |= held.isObject() || held.isArray(); }

  bool found = false;
};

}  // namespace

bool Session::holdsObjects() const {
  Finder finder;
  contents->visitReferences(finder);
  return finder.found || (objects && objects->holdsAny());
}

}  // namespace quorvane::customary
