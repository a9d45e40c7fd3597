#include <iostream>

#include "platform/system.h"
#include "tools/qvlang.h"

int main(int argc, char** argv) {
  const auto files = makeFiles();
  return static_cast<int>(runLanguageTool({argv + 1, argv + argc}, *files, std::cout, std::cerr));
}
