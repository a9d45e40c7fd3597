#pragma once

#include <string>

namespace quorvane {

std::wstring programFile();  ///< the whole path of this very program

}  // namespace quorvane
