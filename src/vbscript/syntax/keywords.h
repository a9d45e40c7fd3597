#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvane::vbs {

/// The words with a meaning of their own. From kFirstContextual on, they have it in certain places
/// only and are ordinary names elsewhere.
enum class Keyword : std::uint8_t {
  And,
  ByRef,
  ByVal,
  Call,
  Case,
  Class,
  Const,
  Dim,
  Do,
  Each,
  Else,
  ElseIf,
  Empty,
  End,
  Eqv,
  Exit,
  False,
  For,
  Function,
  Get,
  GoTo,
  If,
  Imp,
  In,
  Is,
  Let,
  Loop,
  Me,
  Mod,
  New,
  Next,
  Not,
  Nothing,
  Null,
  On,
  Option,
  Or,
  Preserve,
  Private,
  Public,
  ReDim,
  Rem,
  Resume,
  Select,
  Set,
  Sub,
  Then,
  To,
  True,
  Until,
  Wend,
  While,
  With,
  Xor,
  Default,
  Erase,
  Error,
  Explicit,
  Property,
  Step,
  Stop,
  None,
};

inline constexpr Keyword kFirstContextual = Keyword::Default;

/// The folded texts, in the order of the enum.
inline constexpr std::array<std::string_view, static_cast<std::size_t>(Keyword::None)>
    kKeywordTexts = {"and",    "byref",    "byval",    "call",    "case",     "class",   "const",
                     "dim",    "do",       "each",     "else",    "elseif",   "empty",   "end",
                     "eqv",    "exit",     "false",    "for",     "function", "get",     "goto",
                     "if",     "imp",      "in",       "is",      "let",      "loop",    "me",
                     "mod",    "new",      "next",     "not",     "nothing",  "null",    "on",
                     "option", "or",       "preserve", "private", "public",   "redim",   "rem",
                     "resume", "select",   "set",      "sub",     "then",     "to",      "true",
                     "until",  "wend",     "while",    "with",    "xor",      "default", "erase",
                     "error",  "explicit", "property", "step",    "stop"};

constexpr bool isReserved(Keyword keyword) {
  return keyword < kFirstContextual;
}

}  // namespace quorvane::vbs
