#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "vbscript/values/memory_meter.h"
#include "vbscript/values/string_body.h"

namespace quorvane::vbs {

/// A reference-counted script string of any UTF-16 text. Characters that all stand in
/// Windows-1252 are normally held in one byte each; two spellings of the same text compare equal.
/// Copies share the body; append() grows in place when nobody else holds it, so that a loop of
/// `s = s & x` is linear. At most 1 GiB of bytes; error 7 or 14 beyond.
class String {
 public:
  String() = default;                                   ///< empty, no allocation
  explicit String(std::string_view ansi);               ///< bytes of Windows-1252
  static String fromWide(std::u16string_view text);     ///< narrowed to Ansi when every unit fits
  static String fromWideBytes(std::string_view bytes);  ///< byte string as ChrB makes it
  static String fromUtf8(std::string_view text);
  static String ofByte(char ansi);  ///< one character, without an allocation
  /// Ansi or Wide with room for `capacity` bytes and a length of zero.
  static String withCapacity(Encoding encoding, std::size_t capacity);

  String(const String& other) : rep_(other.rep_) {
    if (rep_) ++rep_->references;
  }
  String(String&& other) noexcept : rep_(std::exchange(other.rep_, nullptr)) {}
  String& operator=(String other) noexcept {
    std::swap(rep_, other.rep_);
    return *this;
  }
  ~String() {
    if (rep_ && --rep_->references == 0) destroy(rep_);
  }

  std::size_t length() const {  ///< characters
    return !rep_ ? 0 : rep_->encoding == Encoding::Ansi ? rep_->bytes : rep_->bytes / 2;
  }
  std::size_t byteLength() const {  ///< as LenB counts: two a character
    return !rep_                              ? 0
           : rep_->encoding == Encoding::Ansi ? std::size_t{rep_->bytes} * 2
                                              : rep_->bytes;
  }
  bool empty() const { return !rep_ || rep_->bytes == 0; }
  bool isAnsi() const { return !rep_ || rep_->encoding == Encoding::Ansi; }

  /// The bytes as held; only while this string lives unchanged.
  std::string_view raw() const {
    return rep_ ? std::string_view(rep_->data(), rep_->bytes) : std::string_view();
  }
  /// Valid for Ansi strings only.
  std::string_view ansi() const { return raw(); }

  char16_t at(std::size_t index) const;                       ///< UTF-16 unit; index < length()
  String substr(std::size_t start, std::size_t count) const;  ///< clamped to the string

  String upper() const;
  String lower() const;
  String trimmed(bool front, bool back) const;  ///< without the blanks (U+0020) at the named ends

  String toWide() const;  ///< the same text held as Wide

  std::string narrow() const;  ///< Windows-1252 bytes, '?' for what has none
  std::u16string wide() const;
  std::string utf8() const;

  static String joined(const String& a, const String& b);  ///< a new body of exactly both
  /// Adds `tail` at the end; in place when this is the only holder and there is room.
  void append(const String& tail);
  void appendAnsi(std::string_view tail);
  void appendUnit(char16_t unit);
  /// Writable room for `count` more bytes behind the present end, for a string made by
  /// withCapacity that nobody else holds; they count as part of it at once.
  char* extend(std::size_t count);

  /// Binary order of the UTF-16 units: <0, 0, >0.
  static int compareBinary(const String& a, const String& b);
  /// Order without regard to letter case, as the text comparison of the default locale has it.
  static int compareText(const String& a, const String& b);
  friend bool operator==(const String& a, const String& b) {
    if (a.rep_ == b.rep_) return true;
    if (a.isAnsi() && b.isAnsi()) return a.raw() == b.raw();
    return compareBinary(a, b) == 0;
  }

  /// Gives up ownership, and takes it back. For Value, which stores the bare pointer.
  StringRep* release() { return std::exchange(rep_, nullptr); }
  static String adopt(StringRep* rep) {
    String s;
    s.rep_ = rep;
    return s;
  }
  StringRep* rep() const { return rep_; }
  static void destroy(StringRep* rep);  ///< frees a body whose last reference is gone

 private:
  void makeRoom(std::size_t bytes);  ///< sole holder of a body with room for `bytes` in all
  void widen(std::size_t bytes);     ///< the same, as Wide

  StringRep* rep_ = nullptr;  ///< null for the empty string
};

/// The UTF-16 unit of a Windows-1252 byte, and back (-1 when the unit has no byte).
char16_t ansiToUnit(unsigned char byte);
int unitToAnsi(char16_t unit);

}  // namespace quorvane::vbs
