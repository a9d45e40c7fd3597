#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

#include "vbscript/machine/operations.h"
#include "vbscript/values/operators.h"

namespace quorvane::vbs::operation {

namespace {

bool isWholeNumber(const Value& value) {
  return value.is(Type::Integer) || value.is(Type::Long) || value.is(Type::Byte);
}

/// 00 to 99.
constexpr auto kPairsOfDigits = [] {
  std::array<std::array<char, 2>, 100> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
  }
  return pairs;
}();

/// A number's digits up to `end`, with its sign; the first of them is returned.
[[gnu::always_inline]] inline char* writeDigits(char* end, std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  std::uint32_t rest = number < 0 ? 0 - bits : bits;
  for (; rest >= 100; rest /= 100) {
    end -= 2;
    std::memcpy(end, kPairsOfDigits[rest % 100].data(), 2);
  }
  if (rest >= 10) {
    end -= 2;
    std::memcpy(end, kPairsOfDigits[rest].data(), 2);
  } else {
    *--end = static_cast<char>('0' + rest);
  }
  if (number < 0) *--end = '-';
  return end;
}

/// What a value adds to a text of one byte a character: its own such text, or its digits.
class Piece {
 public:
  static constexpr std::size_t kMostDigits = 11;  ///< and a sign

  /// False where it takes more than that.
  [[gnu::always_inline]] inline bool set(const Value& value) {
    if (isWholeNumber(value)) {
      const char* const end = digits_.data() + kMostDigits;
      data_ = writeDigits(digits_.data() + kMostDigits, value.asInt());
      size_ = static_cast<std::size_t>(end - data_);
      return true;
    }
    const StringRep* text = value.isString() ? value.stringRep() : nullptr;
    if (!text || text->encoding != Encoding::Ansi) return false;
    data_ = text->data();
    size_ = text->bytes;
    return true;
  }
  std::string_view bytes() const { return {data_, size_}; }

 private:
  std::array<char, kMostDigits> digits_;
  const char* data_;
  std::size_t size_;
};

/// Most pieces are short: without a call, in two steps that may overlap.
[[gnu::always_inline]] inline void copy(char* target, std::string_view bytes) {
  const char* const from = bytes.data();
  const std::size_t size = bytes.size();
  if (size > 16) {
    std::memcpy(target, from, size);
  } else if (size >= 8) {
    std::memcpy(target, from, 8);
    std::memcpy(target + size - 8, from + size - 8, 8);
  } else if (size >= 4) {
    std::memcpy(target, from, 4);
    std::memcpy(target + size - 4, from + size - 4, 4);
  } else if (size > 0) {
    target[0] = from[0];
    target[size / 2] = from[size / 2];
    target[size - 1] = from[size - 1];
  }
}

[[gnu::always_inline]] inline void copyBoth(char* target, std::string_view first,
                                            std::string_view second) {
  copy(target, first);
  copy(target + first.size(), second);
}

/// The body of a text that nobody else holds and that has room for another of `bytes`, though not
/// so much that memory is wasted; else null.
StringRep* reusableBody(const Value& variable, std::size_t bytes) {
  StringRep* body = variable.isString() ? variable.stringRep() : nullptr;
  const bool isOwn = body && body->references == 1 && body->encoding == Encoding::Ansi;
  return isOwn && bytes <= body->capacity && body->capacity <= bytes * 4 + 64 ? body : nullptr;
}

/// Concatenate for texts and whole numbers: into the old body of the result's variable where that
/// can be, else in one allocation. False: not such a case.
bool joinPlainly(CallStack& stack, const Instruction* pc, Value* base) {
  const Value& left = pc->b.of(base).deref();
  Piece first;
  Piece second;
  if (!first.set(left) || !second.set(pc->c.of(base).deref())) return false;
  const bool mayGrow = pc->bIsTemporary() && left.isString() && left.stringRep()->references == 1;
  if (mayGrow) return false;
  const std::string_view l = first.bytes();
  const std::string_view r = second.bytes();
  const std::size_t size = l.size() + r.size();
  StringRep* const own = reusableBody(pc->a.of(base).deref(), size);
  if (own && own->data() != l.data() && own->data() != r.data()) {
    countWork(size);
    copyBoth(own->data(), l, r);
    own->bytes = static_cast<std::uint32_t>(size);
    own->hash = 0;
    giveUp(pc->b.of(base), pc->bIsTemporary());
    giveUp(pc->c.of(base), pc->cIsTemporary());
    return true;
  }
  String text = String::withCapacity(Encoding::Ansi, size);
  copyBoth(text.extend(size), l, r);
  clearOperands(pc, base);
  put(stack, pc, base, Value(std::move(text)));
  return true;
}

/// The room that pieces take at most in a text of one byte a character, and whether the body of one
/// of them is `before`.
struct Room {
  std::size_t bytes = 0;
  bool isShared = false;
};

/// Nothing where a piece takes more than that.
[[gnu::always_inline]] inline std::optional<Room> roomFor(const Value* first, const Value* last,
                                                          const StringRep* before) {
  Room room;
  for (const Value* value = first; value != last; ++value) {
    const Value& direct = value->deref();
    if (direct.isString()) {
      const StringRep* const text = direct.stringRep();
      if (!text) continue;
      if (text->encoding != Encoding::Ansi) return {};
      room.bytes += text->bytes;
      room.isShared |= text == before;
    } else if (isWholeNumber(direct)) {
      room.bytes += Piece::kMostDigits;
    } else {
      return {};
    }
  }
  return room;
}

/// Writes the pieces one behind the other, gives them up, and returns the end.
char* writePieces(char* out, Value* first, const Value* last) {
  Piece piece;
  for (Value* value = first; value != last; ++value) {
    if (piece.set(value->deref())) {
      copy(out, piece.bytes());
      out += piece.bytes().size();
    }
    giveUp(*value, true);
  }
  return out;
}

/// ConcatenateMany for texts and whole numbers: into the old body of the result's variable where
/// that can be, else in one allocation. False: not such a case.
bool joinManyPlainly(CallStack& stack, const Instruction* pc, Value* base) {
  Value* const first = &pc->b.of(base);
  Value* const last = first + pc->c;
  Value& target = pc->a.of(base);
  const Value& variable = target.deref();
  const auto room = roomFor(first, last, variable.isString() ? variable.stringRep() : nullptr);
  if (!room) return false;
  countWork(room->bytes);
  StringRep* const own = room->isShared ? nullptr : reusableBody(variable, room->bytes);
  if (own) {
    own->bytes = static_cast<std::uint32_t>(writePieces(own->data(), first, last) - own->data());
    own->hash = 0;
    return true;
  }
  String text = String::withCapacity(Encoding::Ansi, room->bytes);
  StringRep& body = *text.rep();
  body.bytes = static_cast<std::uint32_t>(writePieces(body.data(), first, last) - body.data());
  if (!vacate(target)) {
    store(stack, target, Value(std::move(text)));
  } else {
    new (&target) Value(std::move(text));
  }
  return true;
}

[[gnu::noinline]] void concatenateAny(CallStack& stack, const Instruction* pc, Value* base) {
  Value& left = base[pc->b];
  if (pc->bIsTemporary() && left.isString()) {
    // Nobody else sees a temporary: its text may grow in place.
    appendTo(left, base[pc->c].deref());
    Value result = std::move(left);
    if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
    return put(stack, pc, base, std::move(result));
  }
  binary(stack, pc, base, concatenate);
}

}  // namespace

void concatenateTwo(CallStack& stack, const Instruction* pc, Value* base) {
  if (!joinPlainly(stack, pc, base)) concatenateAny(stack, pc, base);
}

void concatenateMany(CallStack& stack, const Instruction* pc, Value* base) {
  if (joinManyPlainly(stack, pc, base)) return;
  Value* const first = base + pc->b;
  Value* const last = first + pc->c;
  Value result = concatenate(first[0], first[1]);
  for (Value* piece = first + 2; piece != last; ++piece) appendTo(result, piece->deref());
  clearRange(first, last);
  put(stack, pc, base, std::move(result));
}

void append(CallStack& stack, const Instruction* pc, Value* base) {
  Value& target = base[pc->a].deref();
  Value& tail = base[pc->b].deref();
  appendTo(target, tail);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->bIsTemporary() && needsCare(base[pc->b])) release(base[pc->b]);
  stack.raisePending();
}

void appendSaved(CallStack& stack, const Instruction* pc, Value* base) {
  appendToEarlier(base[pc->a], std::move(base[pc->b]), base[pc->c]);
  if (pc->aIsTemporary()) release(base[pc->a]);
  if (pc->cIsTemporary() && needsCare(base[pc->c])) release(base[pc->c]);
  stack.raisePending();
}

}  // namespace quorvane::vbs::operation
