#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::ado::jet {

/// What the first page of an Access file tells.
struct FileHead {
  static constexpr std::size_t kBytes = 0x98;  ///< from the file's beginning

  bool isOld = false;        ///< Jet 3: texts are in a code page
  bool isEncrypted = false;  ///< by the later way, which nobody reads without the password
  std::string password;      ///< UTF-8; empty when there is none
};

/// Nothing when the bytes are no beginning of such a file.
std::optional<FileHead> fileHead(std::string_view bytes);

}  // namespace quorvane::ado::jet
