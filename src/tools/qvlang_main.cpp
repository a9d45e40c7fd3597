#include <iostream>

#include "platform/system.h"
#include "tools/qvlang.h"

namespace quorvane {

namespace {

int run(int argc, char** argv) {
  const auto files = makeFiles();
  return static_cast<int>(runLanguageTool({argv + 1, argv + argc}, *files, std::cout, std::cerr));
}

}  // namespace

}  // namespace quorvane

int main(int argc, char** argv) {
  return quorvane::run(argc, argv);
}
