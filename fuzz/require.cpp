#include "require.h"

#include <cstdlib>
#include <iostream>

namespace quorvane {

void require(bool condition, std::string_view what, std::string_view input) {
  if (condition) return;
  std::cerr << "does not hold: " << what << ", for\n" << input << '\n';
  std::abort();
}

}  // namespace quorvane
