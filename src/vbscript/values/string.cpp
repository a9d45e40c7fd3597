#include "vbscript/values/string.h"

#include <algorithm>
#include <array>

#include "vbscript/values/assert.h"
#include "vbscript/values/block_pool.h"
#include "vbscript/values/error.h"
#include "vbscript/values/text_case.h"
#include "vbscript/values/text_hash.h"

namespace quorvane::vbs {

namespace {

constexpr std::size_t kMaxBytes = std::size_t{1} << 30;
constexpr std::size_t kDoublingUpTo = std::size_t{1} << 20;

/// Windows-1252 differs from Latin-1 in these 32 bytes only.
constexpr std::array<char16_t, 32> kUnits80To9F = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::size_t charge(std::size_t capacity) {
  return sizeof(StringRep) + capacity;
}

/// Fills up what the allocator would give away anyway: its blocks are 16k + 8 bytes.
constexpr std::size_t roundedCapacity(std::size_t bytes) {
  return ((bytes + sizeof(StringRep) + 23) & ~std::size_t{15}) - 8 - sizeof(StringRep);
}

StringRep* allocate(Encoding encoding, std::size_t bytes) {
  if (bytes > kMaxBytes) throwError(ErrorCode::OutOfStringSpace);
  const std::size_t capacity = roundedCapacity(bytes);
  static_assert(roundedCapacity(0) >= kLeastCapacity);
  runContext.memory.charge(charge(capacity));
  auto* rep = static_cast<StringRep*>(allocateBlock(charge(capacity)));
  if (!rep) {
    runContext.memory.release(charge(capacity));
    throwError(ErrorCode::OutOfMemory);
  }
  rep->references = 1;
  rep->encoding = encoding;
  rep->hash = 0;
  rep->bytes = 0;
  rep->capacity = static_cast<std::uint32_t>(capacity);
  return rep;
}

void grow(StringRep*& rep, std::size_t bytes) {
  if (bytes > kMaxBytes) throwError(ErrorCode::OutOfStringSpace);
  const std::size_t old = rep->capacity;
  std::size_t capacity =
      roundedCapacity(std::max(bytes, old + (old < kDoublingUpTo ? old : old / 2)));
  const std::size_t exact = roundedCapacity(bytes);
  // Close to the limit the room for later appends is what can be spared.
  if (runContext.memory.used + static_cast<std::int64_t>(capacity - old) >
      runContext.memory.limit) {
    capacity = exact;
  }
  runContext.memory.charge(capacity - old);
  auto* grown = static_cast<StringRep*>(resizeBlock(rep, charge(old), charge(capacity)));
  if (!grown) {
    runContext.memory.release(capacity - old);
    throwError(ErrorCode::OutOfMemory);
  }
  rep = grown;
  rep->capacity = static_cast<std::uint32_t>(capacity);
}

char16_t unitAt(const char* bytes, std::size_t index) {
  char16_t unit;
  std::memcpy(&unit, bytes + index * 2, 2);
  return unit;
}

void putUnit(char* bytes, std::size_t index, char16_t unit) {
  std::memcpy(bytes + index * 2, &unit, 2);
}

void widenInto(char* target, std::string_view ansi) {
  for (std::size_t i = 0; i < ansi.size(); ++i) {
    putUnit(target, i, ansiToUnit(static_cast<unsigned char>(ansi[i])));
  }
}

int sign(bool less) {
  return less ? -1 : 1;
}

int compareLengths(std::size_t a, std::size_t b) {
  return a == b ? 0 : sign(a < b);
}

int compareAnsi(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  if (common == 0 || std::memcmp(a.data(), b.data(), common) == 0) {
    return compareLengths(a.size(), b.size());
  }
  std::size_t i = 0;
  while (a[i] == b[i]) ++i;
  return sign(ansiToUnit(static_cast<unsigned char>(a[i])) <
              ansiToUnit(static_cast<unsigned char>(b[i])));
}

/// Rank in the high part, variant in the low part; other characters follow by their folded unit.
std::uint32_t textRank(char16_t unit) {
  const int byte = unitToAnsi(unit);
  if (byte >= 0) return kTextRanks[static_cast<std::size_t>(byte)];
  return 0x10000u | (std::uint32_t{lowerUnit(unit)} << 7);
}

}  // namespace

char16_t ansiToUnit(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUnits80To9F[byte - 0x80] : byte;
}

int unitToAnsi(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit < 0x100)) return unit;
  const auto found = std::find(kUnits80To9F.begin(), kUnits80To9F.end(), unit);
  return found == kUnits80To9F.end() ? -1 : 0x80 + static_cast<int>(found - kUnits80To9F.begin());
}

String::String(std::string_view ansi) {
  if (ansi.empty()) return;
  rep_ = allocate(Encoding::Ansi, ansi.size());
  std::memcpy(rep_->data(), ansi.data(), ansi.size());
  rep_->bytes = static_cast<std::uint32_t>(ansi.size());
}

String String::ofByte(char ansi) {
  OneByteBody& body = runContext.oneByteBodies[static_cast<unsigned char>(ansi)];
  if (body.rep.references == 0) {
    body.rep = StringRep{1, Encoding::Ansi, 0, 1, static_cast<std::uint32_t>(body.text.size())};
    *body.rep.data() = ansi;
  }
  ++body.rep.references;
  return adopt(&body.rep);
}

String String::withCapacity(Encoding encoding, std::size_t capacity) {
  return adopt(allocate(encoding, capacity));
}

String String::fromWide(std::u16string_view text) {
  if (text.empty()) return String();
  String result = withCapacity(Encoding::Ansi, text.size());
  char* out = result.rep_->data();
  for (const char16_t unit : text) {
    const int byte = unitToAnsi(unit);
    if (byte < 0) {
      return fromWideBytes({reinterpret_cast<const char*>(text.data()), text.size() * 2});
    }
    *out++ = static_cast<char>(byte);
  }
  result.rep_->bytes = static_cast<std::uint32_t>(text.size());
  return result;
}

String String::fromWideBytes(std::string_view bytes) {
  if (bytes.empty()) return String();
  String result = withCapacity(Encoding::Wide, bytes.size());
  std::memcpy(result.extend(bytes.size()), bytes.data(), bytes.size());
  return result;
}

namespace {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

String String::fromUtf8(std::string_view text) {
  if (isAscii(text)) return String(text);
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t extra = lead < 0xC2   ? 0
                              : lead < 0xE0 ? 1
                              : lead < 0xF0 ? 2
                              : lead < 0xF5 ? 3
                                            : 0;
    char32_t code = extra == 0 ? lead : lead & (0x3Fu >> extra);
    std::size_t taken = 1;
    while (taken <= extra && i + taken < text.size() && (text[i + taken] & 0xC0) == 0x80) {
      code = code << 6 | (static_cast<unsigned char>(text[i + taken]) & 0x3Fu);
      ++taken;
    }
    const bool overlong = (extra == 2 && code < 0x800) || (extra == 3 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    if ((extra == 0 && lead >= 0x80) || taken != extra + 1 || overlong || surrogate ||
        code > 0x10FFFF) {
      code = 0xFFFD;
    }
    i += taken;
    if (code >= 0x10000) {
      units.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
      code = 0xDC00 + (code & 0x3FF);
    }
    units.push_back(static_cast<char16_t>(code));
  }
  return fromWide(units);
}

void String::destroy(StringRep* rep) {
  VBS_ASSERT(rep->references == 0);
  runContext.memory.release(charge(rep->capacity));
  releaseBlock(rep);
}

char16_t String::at(std::size_t index) const {
  VBS_ASSERT(index < length());
  if (rep_->encoding == Encoding::Ansi) {
    return ansiToUnit(static_cast<unsigned char>(rep_->data()[index]));
  }
  return unitAt(rep_->data(), index);
}

String String::substr(std::size_t start, std::size_t count) const {
  const std::size_t size = length();
  if (start >= size) return String();
  count = std::min(count, size - start);
  if (start == 0 && count == size) return *this;
  if (isAnsi()) return count == 1 ? ofByte(raw()[start]) : String(raw().substr(start, count));
  return fromWideBytes(raw().substr(start * 2, count * 2));
}

String String::upper() const {
  String result = withCapacity(isAnsi() ? Encoding::Ansi : Encoding::Wide, raw().size());
  char* out = result.extend(raw().size());
  if (isAnsi()) {
    std::transform(raw().begin(), raw().end(), out, upperAnsi);
    return result;
  }
  std::memcpy(out, raw().data(), raw().size());
  for (std::size_t i = 0; i < length(); ++i) putUnit(out, i, upperUnit(at(i)));
  return result;
}

String String::lower() const {
  String result = withCapacity(isAnsi() ? Encoding::Ansi : Encoding::Wide, raw().size());
  char* out = result.extend(raw().size());
  if (isAnsi()) {
    std::transform(raw().begin(), raw().end(), out, lowerAnsi);
    return result;
  }
  std::memcpy(out, raw().data(), raw().size());
  for (std::size_t i = 0; i < length(); ++i) putUnit(out, i, lowerUnit(at(i)));
  return result;
}

String String::trimmed(bool front, bool back) const {
  std::size_t start = 0;
  std::size_t end = length();
  while (front && start < end && at(start) == u' ') ++start;
  while (back && end > start && at(end - 1) == u' ') --end;
  countWork(length() - (end - start));
  return substr(start, end - start);
}

String String::toWide() const {
  if (!isAnsi()) return *this;
  String result = withCapacity(Encoding::Wide, raw().size() * 2);
  widenInto(result.extend(raw().size() * 2), raw());
  return result;
}

std::string String::narrow() const {
  if (isAnsi()) return std::string(raw());
  std::string result(length(), '?');
  for (std::size_t i = 0; i < result.size(); ++i) {
    const int byte = unitToAnsi(at(i));
    if (byte >= 0) result[i] = static_cast<char>(byte);
  }
  return result;
}

std::u16string String::wide() const {
  std::u16string result(length(), u'\0');
  for (std::size_t i = 0; i < result.size(); ++i) result[i] = at(i);
  return result;
}

std::string String::utf8() const {
  if (isAnsi() && isAscii(raw())) return std::string(raw());
  std::string result;
  result.reserve(length());
  const auto put = [&result](char32_t bits) { result.push_back(static_cast<char>(bits)); };
  for (std::size_t i = 0; i < length(); ++i) {
    char32_t code = at(i);
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && i + 1 < length() && at(i + 1) >= 0xDC00 && at(i + 1) < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (at(++i) - 0xDC00u);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    if (code < 0x80) {
      put(code);
    } else if (code < 0x800) {
      put(0xC0 | code >> 6);
      put(0x80 | (code & 0x3F));
    } else {
      if (code < 0x10000) {
        put(0xE0 | code >> 12);
      } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
      }
      put(0x80 | (code >> 6 & 0x3F));
      put(0x80 | (code & 0x3F));
    }
  }
  return result;
}

void String::makeRoom(std::size_t bytes) {
  if (!rep_) {
    rep_ = allocate(Encoding::Ansi, bytes);
  } else if (rep_->references > 1) {
    // The first append to a shared text: more are likely to follow.
    StringRep* copy = allocate(rep_->encoding, bytes);
    std::memcpy(copy->data(), rep_->data(), rep_->bytes);
    copy->bytes = rep_->bytes;
    --rep_->references;
    rep_ = copy;
  } else if (bytes > rep_->capacity) {
    grow(rep_, bytes);
  }
}

void String::widen(std::size_t bytes) {
  StringRep* copy = allocate(Encoding::Wide, bytes);
  widenInto(copy->data(), raw());
  copy->bytes = static_cast<std::uint32_t>(raw().size() * 2);
  *this = adopt(copy);
}

char* String::extend(std::size_t count) {
  makeRoom(raw().size() + count);
  char* end = rep_->data() + rep_->bytes;
  rep_->bytes += static_cast<std::uint32_t>(count);
  rep_->hash = 0;
  return end;
}

void String::appendAnsi(std::string_view tail) {
  if (tail.empty()) return;
  if (isAnsi()) {
    std::memcpy(extend(tail.size()), tail.data(), tail.size());
  } else {
    widenInto(extend(tail.size() * 2), tail);
  }
}

void String::appendUnit(char16_t unit) {
  const int byte = unitToAnsi(unit);
  const char narrow = static_cast<char>(byte);
  if (byte >= 0) return appendAnsi({&narrow, 1});
  if (isAnsi()) widen(raw().size() * 2 + 2);
  putUnit(extend(2), 0, unit);
}

void String::append(const String& tail) {
  if (tail.empty()) return;
  if (empty()) {
    *this = tail;
    return;
  }
  if (rep_ == tail.rep_) {
    const std::size_t size = raw().size();
    char* end = extend(size);  // may move the bytes, which are the same at the new place
    std::memcpy(end, rep_->data(), size);
    return;
  }
  if (tail.isAnsi()) return appendAnsi(tail.raw());
  if (isAnsi()) widen(raw().size() * 2 + tail.raw().size());
  std::memcpy(extend(tail.raw().size()), tail.raw().data(), tail.raw().size());
}

String String::joined(const String& a, const String& b) {
  if (b.empty()) return a;
  if (a.empty()) return b;
  if (a.isAnsi() && b.isAnsi()) {
    const std::size_t first = a.raw().size();
    String result = withCapacity(Encoding::Ansi, first + b.raw().size());
    char* out = result.extend(first + b.raw().size());
    std::memcpy(out, a.raw().data(), first);
    std::memcpy(out + first, b.raw().data(), b.raw().size());
    return result;
  }
  String result = a;
  result.append(b);
  return result;
}

int String::compareBinary(const String& a, const String& b) {
  countWork(std::min(a.raw().size(), b.raw().size()));
  if (a.isAnsi() && b.isAnsi()) return compareAnsi(a.raw(), b.raw());
  const std::size_t common = std::min(a.length(), b.length());
  for (std::size_t i = 0; i < common; ++i) {
    if (a.at(i) != b.at(i)) return sign(a.at(i) < b.at(i));
  }
  if (a.length() != b.length()) return compareLengths(a.length(), b.length());
  const bool oddA = a.byteLength() % 2 != 0;
  const bool oddB = b.byteLength() % 2 != 0;
  if (oddA && oddB) {
    return compareLengths(static_cast<unsigned char>(a.raw().back()),
                          static_cast<unsigned char>(b.raw().back()));
  }
  return compareLengths(oddA, oddB);
}

int String::compareText(const String& a, const String& b) {
  const std::size_t common = std::min(a.length(), b.length());
  countWork(common);
  int variant = 0;  // accents decide only between texts of the same letters
  for (std::size_t i = 0; i < common; ++i) {
    const char16_t unitA = a.at(i);
    const char16_t unitB = b.at(i);
    if (unitA == unitB) continue;
    const std::uint32_t rankA = textRank(unitA);
    const std::uint32_t rankB = textRank(unitB);
    if (rankA >> 7 != rankB >> 7) return sign(rankA < rankB);
    if (variant == 0 && rankA != rankB) variant = sign(rankA < rankB);
  }
  if (a.length() != b.length()) return compareLengths(a.length(), b.length());
  return variant;
}

}  // namespace quorvane::vbs
