#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The format of resource modules (".qvm"), written and read entry by entry. What the server makes
/// of a module is clsQVMod's business; this is for looking inside.

/// A file in a module.
struct ModuleFile {
  std::string folder;  ///< as recorded; for packing "img/icons", empty for the root
  std::string name;    ///< begins with a locale identifier and "$" when it is for one language
  std::string date;    ///< "yyyy-MM-dd HH:mm:ss"
  std::string content;
  std::size_t packedLength = 0;  ///< of the record, known after reading
};

/// Most entries of a module that the server reads: they are numbered in one byte.
inline constexpr std::size_t kMostUsableEntries = 255;

/// The module's bytes; nothing when it would have more entries or bytes than its header can say.
/// Entries stand in the order given.
std::optional<std::string> writeModule(std::span<const ModuleFile> files);

struct ModuleContents {
  std::vector<ModuleFile> files;
  /// What stopped the reading, a sentence; empty when the module is whole. The files before it
  /// are there.
  std::string problem;
};

ModuleContents readModule(std::string_view bytes);

}  // namespace quorvane
