#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// A file name without its letter case: names that fold to the same are one name where case does
/// not count. Covers ASCII letters and the Latin-1 letters in their UTF-8 form.
std::string foldCase(std::string_view name);

}  // namespace quorvane
