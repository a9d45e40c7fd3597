#include "components/component.h"

namespace quorvane {

/// The system has its own.
std::span<const Component* const> mailComponents() {
  return {};
}

}  // namespace quorvane
