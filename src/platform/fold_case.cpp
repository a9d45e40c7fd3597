#include "platform/fold_case.h"

namespace quorvane {

std::string foldCase(std::string_view name) {
  std::string folded(name);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    char& c = folded[i];
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    const auto byte = static_cast<unsigned char>(c);
    // C3 80 to C3 9E are the capitals, but for the multiplication sign among them.
    const bool afterC3 = i > 0 && folded[i - 1] == '\xC3';
    if (afterC3 && byte >= 0x80 && byte <= 0x9E && byte != 0x97) c = static_cast<char>(byte + 0x20);
  }
  return folded;
}

}  // namespace quorvane
