#pragma once

#include <array>
#include <cstdint>

namespace quorvane::vbs {

/// How a string's bytes are to be read.
enum class Encoding : std::uint32_t {
  Ansi,  ///< one byte a character, Windows-1252; its five unassigned bytes stand for U+0081 etc.
  Wide,  ///< UTF-16 code units of two bytes; an odd byte may follow, as byte strings have it
};

/// The shared body of a string: this header and the bytes behind it, in one allocation.
struct StringRep {
  std::uint32_t references;
  Encoding encoding : 8;
  std::uint32_t hash : 24;  ///< as keptHash() found it, else 0; gone when the text changes
  std::uint32_t bytes;      ///< length in bytes
  std::uint32_t capacity;   ///< room for bytes behind the header

  char* data() { return reinterpret_cast<char*>(this + 1); }
  const char* data() const { return reinterpret_cast<const char*>(this + 1); }
};
static_assert(sizeof(StringRep) == 16);

/// Bodies of all one-byte texts; the table itself is a holder of each, so they never end. Of each
/// thread because counts are not atomic, and never destroyed because values may stand in objects
/// that outlive everything local to the thread.
struct OneByteBody {
  StringRep rep;
  std::array<char, 8> text;
};
using OneByteBodies = std::array<OneByteBody, 256>;

}  // namespace quorvane::vbs
