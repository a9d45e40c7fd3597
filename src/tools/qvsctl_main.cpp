#include <iostream>

#include "platform/datagram_exchange.h"
#include "tools/qvsctl.h"

namespace quorvane {

namespace {

int run(int argc, char** argv) {
  return static_cast<int>(
      runControlTool({argv + 1, argv + argc}, exchangeDatagrams, std::cout, std::cerr));
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
