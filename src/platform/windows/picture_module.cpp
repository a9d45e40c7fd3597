#include "platform/picture_tools.h"

namespace quorvane::picture_tools {

const Loaded& load() {
  static const Loaded loaded{nullptr, "there is no library for pictures"};
  return loaded;
}

}  // namespace quorvane::picture_tools
