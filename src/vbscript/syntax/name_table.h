#pragma once

#include <cstdint>
#include <memory_resource>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::vbs {

/// Gives every name of a script a small number: the same for all spellings that differ in letter
/// case only. The language's keywords come first, in the order of the enum Keyword, so that one
/// look-up tells a word from a keyword. Owns the folded texts.
class NameTable {
 public:
  struct Entry {
    std::string_view lower;
    std::uint32_t id;
    std::uint32_t hash;
  };

  NameTable();
  NameTable(const NameTable&) = delete;
  NameTable& operator=(const NameTable&) = delete;

  /// The entry for a name of any letter case; stays where it is while the table lives.
  const Entry& intern(std::string_view text);

  std::uint32_t size() const { return count_; }

 private:
  const Entry& add(std::string_view lower, std::uint32_t hash);
  void grow();

  std::pmr::monotonic_buffer_resource storage_;
  std::vector<const Entry*> slots_;  ///< open addressing; a power of two
  std::uint32_t count_ = 0;
};

/// A name in the folded form that every comparison uses.
std::string foldName(std::string_view text);

}  // namespace quorvane::vbs
