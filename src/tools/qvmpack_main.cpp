#include <iostream>

#include "platform/system.h"
#include "tools/qvmpack.h"

int main(int argc, char** argv) {
  const auto files = makeFiles();
  return static_cast<int>(runModuleTool({argv + 1, argv + argc}, *files, std::cout, std::cerr));
}
